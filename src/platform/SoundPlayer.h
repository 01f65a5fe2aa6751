// The sound device of the desktop.
#pragma once

#include "engine/ports/cSounds.h"

#include <QPointer>
#include <QStringList>
#include <QTimer>

class QProcess;

namespace tessel {

// Every sound is a short process of `tslsound`, which stands beside this program. Nothing that a file
// or a sound server does, or does not do, can reach the station, and nothing of it stays in memory.
class SoundPlayer : public Sounds {
public:
    // In the folder of this program.
    SoundPlayer();
    // `program`: the path of the player.
    explicit SoundPlayer(const QString& program);
    ~SoundPlayer() override;

    QString trouble() const override;
    void play(const QString& path) override;
    void beep(int hertz, int ms) override;

private:
    void ask(const QStringList& arguments);
    void start();

    QString m_program;
    QStringList m_next; // arguments of the sound to come
    QTimer m_gather;
    QPointer<QProcess> m_playing; // the sound that is heard
    int m_players = 0;            // that have not been seen to end
};

} // namespace tessel
