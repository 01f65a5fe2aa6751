// The time from the start of a process to its first painted window: the program against the minimal
// one, turn by turn, each program start with an empty home.
//
// plain_start TIMES MINIMAL PROGRAM. Wants a display, and a private network namespace, since the
// program may get as far as the network.
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kPatienceMs = 20000;

std::int64_t nowNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * std::int64_t{1000000000} + now.tv_nsec;
}

// A home whose owner has the first run behind him: a question instead of the main window would be
// another measurement.
std::filesystem::path makeHome() {
    std::string name = (std::filesystem::temp_directory_path() / "tessel-start.XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        std::perror("home");
        std::exit(1);
    }
    const std::filesystem::path home = name;
    const std::filesystem::path folder = home / "data" / "Tessel Status";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "user.cfg") << "[User]\r\nFirstRun=0\r\nLOCATION=Room 1\r\nTAG=5\r\n"
                                          "[Settings]\r\nUPD=0\r\n";
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
    return home;
}

[[noreturn]] void become(const char* program, const std::filesystem::path& home, int errors) {
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (home / "data").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
    ::setenv("XDG_CACHE_HOME", (home / "cache").c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", home.c_str(), 1);
    ::dup2(errors, STDERR_FILENO);
    ::setenv("TESSEL_TRACE_START", std::to_string(nowNs()).c_str(), 1);
    ::execl(program, program, static_cast<char*>(nullptr));
    std::perror(program);
    ::_exit(127);
}

// Milliseconds to the first paint as the program tells them, negative when it does not.
double readFirstPaint(int errors) {
    std::string text;
    const std::int64_t end = nowNs() + std::int64_t{kPatienceMs} * 1000000;
    while (nowNs() < end) {
        pollfd wait{errors, POLLIN, 0};
        std::array<char, 4096> buffer;
        const ssize_t size = ::poll(&wait, 1, 100) > 0 ? ::read(errors, buffer.data(), buffer.size()) : -1;
        if (size == 0) {
            break;
        }
        text.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        const std::size_t at = text.find("first paint ");
        if (at != std::string::npos && text.find('\n', at) != std::string::npos) {
            return std::strtod(text.c_str() + at + std::strlen("first paint "), nullptr);
        }
    }
    std::printf("    no first paint; the program said: %s\n", text.c_str());
    return -1;
}

double start(const char* program) {
    const std::filesystem::path home = makeHome();
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        std::perror("pipe");
        std::exit(1);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        become(program, home, ends[1]);
    }
    ::close(ends[1]);
    const double ms = readFirstPaint(ends[0]);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    std::filesystem::remove_all(home);
    return ms;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    const int times = argc == 4 ? std::atoi(argv[1]) : 0;
    if (times < 1 || times > 1000 || ::getenv("TESSEL_NETNS") == nullptr) {
        std::fprintf(stderr, "usage: scripts/in-netns plain_start TIMES MINIMAL PROGRAM\n");
        return 2;
    }
    std::vector<double> minimal;
    std::vector<double> program;
    // The first start of each reads its libraries from the disk.
    for (int i = -1; i < times; ++i) {
        const double a = start(argv[2]);
        const double b = start(argv[3]);
        if (a < 0 || b < 0) {
            return 1;
        }
        if (i >= 0) {
            minimal.push_back(a);
            program.push_back(b);
        }
    }
    std::printf(
        "    first painted window, median of %d: minimal program %.1f ms, program %.1f ms, ratio %.2f\n",
        times, median(minimal), median(program), median(program) / median(minimal));
    return 0;
}
