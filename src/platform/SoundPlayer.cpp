#include "platform/SoundPlayer.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include <utility>

namespace tessel {

namespace {

// Of several sounds asked for within this time, the last one is heard. It also keeps the start of a
// process out of the way of what the same event still has to do.
constexpr int kGatherMs = 30;
// A process that reads from a dead network drive cannot be ended. With this many of them there is
// silence.
constexpr int kMostPlayers = 8;
// How long the end of this program waits for a player that was ended.
constexpr int kLastWaitMs = 100;

} // namespace

SoundPlayer::SoundPlayer()
    : SoundPlayer(QCoreApplication::applicationDirPath() + QLatin1String("/tslsound")) {}

SoundPlayer::SoundPlayer(const QString& program) : m_program(program) {
    m_gather.setSingleShot(true);
    m_gather.setInterval(kGatherMs);
    QObject::connect(&m_gather, &QTimer::timeout, &m_gather, [this] { start(); });
}

SoundPlayer::~SoundPlayer() {
    if (m_playing != nullptr) {
        m_playing->kill();
        // One that cannot be ended is left to the system: deleting it would wait for half a minute.
        if (m_playing->waitForFinished(kLastWaitMs)) {
            delete m_playing;
        }
    }
}

QString SoundPlayer::trouble() const {
    return QFileInfo(m_program).isExecutable() ? QString() : QLatin1String("No player: ") + m_program;
}

void SoundPlayer::play(const QString& path) {
    if (!path.isEmpty() && !path.contains(QChar(0))) {
        ask({QStringLiteral("play"), path});
    }
}

void SoundPlayer::beep(int hertz, int ms) {
    ask({QStringLiteral("beep"), QString::number(hertz), QString::number(ms)});
}

void SoundPlayer::ask(const QStringList& arguments) {
    m_next = arguments;
    // Not anew with every sound, or a flood of them would stay silent for as long as it lasts.
    if (!m_gather.isActive()) {
        m_gather.start();
    }
}

void SoundPlayer::start() {
    if (m_playing != nullptr) {
        m_playing->kill();
        m_playing = nullptr;
    }
    if (m_players >= kMostPlayers) {
        return;
    }
    auto* const player = new QProcess;
    player->setStandardInputFile(QProcess::nullDevice());
    player->setStandardOutputFile(QProcess::nullDevice());
    player->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(player, &QProcess::finished, player, &QObject::deleteLater);
    QObject::connect(player, &QProcess::errorOccurred, player, [player](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            player->deleteLater();
        }
    });
    QObject::connect(player, &QObject::destroyed, &m_gather, [this] { --m_players; });
    ++m_players;
    m_playing = player;
    player->start(m_program, std::exchange(m_next, {}));
}

} // namespace tessel
