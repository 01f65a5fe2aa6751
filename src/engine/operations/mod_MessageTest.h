// The message test: messages to everyone, one after the other, each of them a line in mtest.txt.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

namespace tessel {

class Compose;
class Folders;
enum class SendResult;
struct OwnState;

class MessageTest : public QObject {
    Q_OBJECT
public:
    static constexpr int kMostMessages = 1000;
    static constexpr int kLongestPause = 3600;

    MessageTest(const OwnState& own, const Folders& folders, Clock& clock, Compose& compose);

    // Sends `count` messages, 1 to 1000, one every `seconds`, 1 to 3600. A test that runs begins anew.
    void start(int seconds, int count);
    void stop();
    bool running() const { return tmrSendMessages.enabled(); }
    // Of the test that runs, or of the last one: messages that are through, with those that could not be
    // sent, and how many it was to be.
    int done() const { return m_number; }
    int failed() const { return m_failed; }
    int count() const { return m_count; }

    QString logPath() const;
    // Deletes mtest.txt. False when there was none, or it stands.
    bool KillmLog();

    Timer tmrSendMessages;

signals:
    // It began or ended, or a message is through.
    void changed();

private:
    void SendTestMessages();
    QString CreateMessage(int number) const;
    void Logmessage(const QString& text, SendResult result);

    const OwnState& m_own;
    const Folders& m_folders;
    const Clock& m_clock;
    Compose& m_compose;
    int m_pause = 1;
    int m_wait = 0; // seconds until the next message
    int m_number = 0;
    int m_failed = 0;
    int m_count = 0;
};

} // namespace tessel
