#include "engine/core/cSaver.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"

#include <QFileInfo>

#include <utility>

namespace tessel {

namespace {
constexpr int kTryAgainMs = 30000;
constexpr std::int64_t kBetweenLinesMs = 60000;
} // namespace

cSaver::cSaver(const OwnState& own, Clock& clock, cErrorLog& log)
    : tmrSaver(clock, "tmrSaver", kTryAgainMs, Timer::Kind::Repeating, [this] { tick(); }), m_own(own),
      m_clock(clock), m_log(log) {}

void cSaver::note(const QString& path, bool saved) {
    const QString name = QFileInfo(path).fileName();
    if (saved) {
        if (m_unsaved.removeAll(name) > 0 && m_unsaved.isEmpty()) {
            tmrSaver.setEnabled(!m_notices.isEmpty());
            tellLog();
            if (m_inFooter) {
                m_inFooter = false;
                emit footer(QStringLiteral("Saved"), {}, true);
            }
        }
        return;
    }
    if (!m_unsaved.contains(name)) {
        m_unsaved += name;
        m_untold += name;
        tellLog();
        tell();
    }
    tmrSaver.setEnabled(true);
}

void cSaver::tellOnce(const QString& text) {
    m_notices += text;
    tmrSaver.setEnabled(true);
}

void cSaver::tick() {
    // The log first: once there is room again, it must not forget why.
    tellLog();
    emit tryAgain();
    if (m_own.online) {
        for (const QString& text : std::exchange(m_notices, {})) {
            emit notice(text);
            emit footer(text, {}, false);
        }
    }
    tell();
    tmrSaver.setEnabled(!m_unsaved.isEmpty() || !m_notices.isEmpty());
}

void cSaver::unload() {
    if (!m_unsaved.isEmpty()) {
        tellLog();
        emit tryAgain();
    }
    tmrSaver.setEnabled(false);
}

void cSaver::tell() {
    // Other words of the footer are of the network: as long as it is down, they matter more.
    if (!m_unsaved.isEmpty() && m_own.online) {
        m_inFooter = true;
        emit footer(
            QLatin1String("Not saved: ") + m_unsaved.join(QLatin1String(", ")),
            QStringLiteral(
                "The disk may be full, or the file cannot be written. It is tried again every 30 seconds."),
            false);
    }
}

void cSaver::tellLog() {
    const std::int64_t now = m_clock.monotonicMs();
    if (m_untold.isEmpty() || (m_toldAt >= 0 && now - m_toldAt < kBetweenLinesMs)) {
        return;
    }
    if (m_log.LogEvent(QStringLiteral("Files"),
                       QLatin1String("Not saved: ") + m_untold.join(QLatin1String(", ")),
                       QStringLiteral("FNS"))) {
        m_untold.clear();
        m_toldAt = now;
    }
}

} // namespace tessel
