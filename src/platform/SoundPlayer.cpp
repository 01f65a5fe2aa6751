#include "platform/SoundPlayer.h"

#include <QCoreApplication>
#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tessel {

namespace {

// Of several sounds asked for within this time, the last one is heard. It also keeps the start of a
// process out of the way of what the same event still has to do.
constexpr int kGatherMs = 30;
constexpr int kReapMs = 250;
// A process that reads from a dead network drive cannot be ended. With this many of them there is
// silence.
constexpr std::size_t kMostChildren = 8;

struct FileActions {
    FileActions() { ::posix_spawn_file_actions_init(&value); }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&value); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    posix_spawn_file_actions_t value{};
};

struct Attributes {
    Attributes() { ::posix_spawnattr_init(&value); }
    ~Attributes() { ::posix_spawnattr_destroy(&value); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    posix_spawnattr_t value{};
};

} // namespace

SoundPlayer::SoundPlayer()
    : SoundPlayer(QCoreApplication::applicationDirPath() + QLatin1String("/tslsound")) {}

SoundPlayer::SoundPlayer(const QString& program) : m_program(QFile::encodeName(program)) {
    m_gather.setSingleShot(true);
    m_gather.setInterval(kGatherMs);
    QObject::connect(&m_gather, &QTimer::timeout, &m_gather, [this] { start(); });
    m_reap.setInterval(kReapMs);
    QObject::connect(&m_reap, &QTimer::timeout, &m_reap, [this] { reap(); });
}

SoundPlayer::~SoundPlayer() {
    // What is left is taken over by the system when this program ends.
    cutOff();
    reap();
}

void SoundPlayer::play(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (!name.isEmpty() && !name.contains('\0')) {
        ask({"play", name});
    }
}

void SoundPlayer::beep(int hertz, int ms) {
    ask({"beep", QByteArray::number(hertz), QByteArray::number(ms)});
}

void SoundPlayer::ask(const QByteArrayList& arguments) {
    m_next = arguments;
    // Not anew with every sound, or a flood of them would stay silent for as long as it lasts.
    if (!m_gather.isActive()) {
        m_gather.start();
    }
}

void SoundPlayer::start() {
    cutOff();
    reap();
    const QByteArrayList arguments = std::exchange(m_next, {});
    if (arguments.isEmpty() || m_children.size() >= kMostChildren) {
        return;
    }
    m_playing = spawn(arguments);
    if (m_playing != 0) {
        m_children.push_back(m_playing);
        m_reap.start();
    }
}

void SoundPlayer::cutOff() {
    if (m_playing != 0) {
        // Not yet reaped, so the number is still that of the child.
        ::kill(m_playing, SIGKILL);
        m_playing = 0;
    }
}

void SoundPlayer::reap() {
    std::erase_if(m_children, [this](pid_t child) {
        if (::waitpid(child, nullptr, WNOHANG) == 0) {
            return false;
        }
        if (child == m_playing) {
            m_playing = 0;
        }
        return true;
    });
    if (m_children.empty()) {
        m_reap.stop();
    }
}

pid_t SoundPlayer::spawn(const QByteArrayList& arguments) const {
    FileActions files;
    ::posix_spawn_file_actions_addopen(&files.value, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&files.value, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&files.value, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // The station's sockets and files are none of a player's business.
    ::posix_spawn_file_actions_addclosefrom_np(&files.value, STDERR_FILENO + 1);

    // The player's own alarm must reach it whatever this program blocks.
    Attributes attributes;
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigdefault(&attributes.value, &all);
    ::posix_spawnattr_setsigmask(&attributes.value, &none);
    ::posix_spawnattr_setflags(&attributes.value, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    QByteArrayList words = QByteArrayList{m_program} + arguments;
    std::vector<char*> pointers;
    for (QByteArray& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    pid_t child = 0;
    const int failure = ::posix_spawn(&child, m_program.constData(), &files.value, &attributes.value,
                                      pointers.data(), environ);
    return failure == 0 ? child : 0;
}

} // namespace tessel
