#include "engine/operations/mod_MessageTest.h"

#include "engine/alerts/mod_Compose.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Limits.h"
#include "records/mod_PlainText.h"

#include <QStringList>

#include <algorithm>

namespace tessel {

namespace {
const char* word(SendResult result) {
    switch (result) {
    case SendResult::Sent:
        return "Sent";
    case SendResult::Offline:
        return "Offline";
    case SendResult::TooShort:
    case SendResult::NoRecipient:
    case SendResult::TooLong:
        break;
    }
    return "Not sent";
}
} // namespace

MessageTest::MessageTest(const OwnState& own, const Folders& folders, Clock& clock, Compose& compose)
    : tmrSendMessages(clock, "tmrSendMessages", 1000, Timer::Kind::Repeating, [this] { SendTestMessages(); }),
      m_own(own), m_folders(folders), m_clock(clock), m_compose(compose) {}

void MessageTest::start(int seconds, int count) {
    m_pause = std::clamp(seconds, 1, kLongestPause);
    m_count = std::clamp(count, 1, kMostMessages);
    m_wait = m_number = m_failed = 0;
    tmrSendMessages.restart();
    emit changed();
}

void MessageTest::stop() {
    if (running()) {
        tmrSendMessages.setEnabled(false);
        emit changed();
    }
}

void MessageTest::SendTestMessages() {
    if (m_wait > 0 && --m_wait > 0) {
        return;
    }
    m_wait = m_pause;
    ++m_number;
    const QString text = CreateMessage(m_number);
    const SendResult result = m_compose.send({.log = MessageLog::SentToSeveral,
                                              .recipients = kEveryone,
                                              .body = text,
                                              .everyone = true,
                                              .everyoneMark = true});
    m_failed += result == SendResult::Sent ? 0 : 1;
    Logmessage(text, result);
    if (m_number >= m_count) {
        tmrSendMessages.setEnabled(false);
    }
    emit changed();
}

QString MessageTest::CreateMessage(int number) const {
    return QStringLiteral("This is a an automated test message from ") + m_own.location +
           QStringLiteral(". Message #") + QString::number(number);
}

void MessageTest::Logmessage(const QString& text, SendResult result) {
    const QStringList items{m_clock.timeText(), m_clock.dateText(), QString::number(m_number),
                            withoutControls(text), QLatin1String(word(result))};
    appendToFile(logPath(), toBytes(items.join(QLatin1String(" ,"))) + '\n',
                 static_cast<qint64>(kMaxLogBytes));
}

QString MessageTest::logPath() const {
    return m_folders.dataFile(kMessageTestFile);
}

bool MessageTest::KillmLog() {
    return DeleteFile(logPath());
}

} // namespace tessel
