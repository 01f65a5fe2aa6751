// The sound device of the desktop.
#pragma once

#include "engine/ports/cSounds.h"

#include <QByteArrayList>
#include <QTimer>

#include <sys/types.h>

#include <vector>

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

    void play(const QString& path) override;
    void beep(int hertz, int ms) override;

private:
    void ask(const QByteArrayList& arguments);
    void start();
    // Ends the sound that is heard.
    void cutOff();
    // Lets go of the processes that have ended.
    void reap();
    // The process, or 0.
    pid_t spawn(const QByteArrayList& arguments) const;

    QByteArray m_program;
    QByteArrayList m_next; // arguments of the sound to come; empty: none
    QTimer m_gather;
    QTimer m_reap;
    pid_t m_playing = 0;
    std::vector<pid_t> m_children; // that have not been seen to end, m_playing included
};

} // namespace tessel
