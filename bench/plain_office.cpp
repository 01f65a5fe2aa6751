// A whole office in one process: what ten virtual minutes of it cost in real time and memory.
//
// Every packet goes to every station, so the work grows with the square of their number whatever one
// does; the cost of one delivery shows whether anything else grows with it.
#include "support/World.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/resource.h>

using namespace tessel;

namespace {

constexpr std::int64_t kVirtualMs = 600000;

// Kilobytes, of this process since its start.
long peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::strtol(line.c_str() + 6, nullptr, 10);
        }
    }
    return 0;
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void office(int stations, std::int64_t overMs) {
    const auto start = std::chrono::steady_clock::now();
    World world(stations);
    world.network.keepSent = false;
    const double built = secondsSince(start);
    const long before = peakMemory();
    const double processorBefore = processorSeconds();
    for (int i = 0; i < stations; ++i) {
        world.start(static_cast<std::size_t>(i));
        if (overMs > 0) {
            world.clock.advance(overMs / stations);
        }
    }
    world.clock.advance(kVirtualMs - world.clock.monotonicMs());
    const double run = secondsSince(start) - built;
    const double processor = processorSeconds() - processorBefore;

    std::uint64_t sent = 0;
    int whole = 0;
    for (int i = 0; i < stations; ++i) {
        sent += world[static_cast<std::size_t>(i)]->protocol.packetsSent();
        whole += world.locations(static_cast<std::size_t>(i)) == stations ? 1 : 0;
    }
    const double deliveries = static_cast<double>(sent) * stations;
    std::printf("    %4d stations %s: ten minutes in %.2f s, %.2f s of processor; %.0f packets, %.2f us "
                "of processor a delivery; peak %ld MB, "
                "%.2f KB a row; %d of %d see all; set-up %.2f s\n",
                stations, overMs > 0 ? "one after another" : "all at once", run, processor,
                static_cast<double>(sent), 1e6 * processor / deliveries, peakMemory() / 1024,
                static_cast<double>(peakMemory() - before) / stations / stations, whole, stations, built);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int stations = argc == 3 ? std::atoi(argv[1]) : 0;
    const bool staggered = argc == 3 && std::strcmp(argv[2], "staggered") == 0;
    if (stations < 1 || stations > 2000 || (!staggered && std::strcmp(argv[2], "together") != 0)) {
        std::fprintf(stderr, "usage: plain_office STATIONS together|staggered\n");
        return 2;
    }
    constexpr std::int64_t kStaggeredMs = 120000;
    office(stations, staggered ? kStaggeredMs : 0);
    return 0;
}
