// Messages as they arrive: whether one is for this location, and whether it was heard before.
#pragma once

#include <QObject>
#include <QString>

namespace tessel {

class cErrorLog;
class Clock;
class NetworkProtocol;
class Settings;
struct OwnState;

// A message for this location.
struct ReceivedMessage {
    QString kind; // "0" new, "1" a reply
    bool everyone = false;
    QString MessageID;
    QString location; // the sender's
    QString SID;
    QString text;
    QString time;
    QString date;
};

class Messages : public QObject {
    Q_OBJECT
public:
    Messages(const OwnState& own, const Settings& settings, cErrorLog& log, const Clock& clock,
             NetworkProtocol& protocol);

    // `body`: kind, recipients, message id and text, joined by `ValueMark`.
    void ProcessMessage(const QString& body, const QString& SID, const QString& location);
    void ProcessMessageAll(const QString& body, const QString& SID, const QString& location);

signals:
    void arrived(const ReceivedMessage& message);

private:
    // One way of being addressed; each remembers the last message id of its own.
    struct Road {
        bool everyone;
        const char* logSuffix;
        QString lastID;
    };

    void process(Road& road, const QString& body, const QString& SID, const QString& location);
    bool isRecipient(const QString& recipients) const;

    const OwnState& m_own;
    const Settings& m_settings;
    cErrorLog& m_log;
    const Clock& m_clock;
    Road m_listed{false, "", {}};
    Road m_everyone{true, " Everyone", {}};
};

} // namespace tessel
