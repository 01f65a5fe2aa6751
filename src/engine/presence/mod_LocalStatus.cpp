#include "engine/presence/mod_LocalStatus.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cDesktop.h"
#include "engine/presence/mod_SharedStatus.h"

#include <algorithm>

namespace tessel {

namespace {

const QString kSection = QStringLiteral("status");
constexpr int kHotKeyCount = 3;

// A whole number, or -1.
int indexOf(const QString& text) {
    bool ok = false;
    const int number = text.trimmed().toShort(&ok);
    return ok ? number : -1;
}

} // namespace

LocalStatus::LocalStatus(OwnState& own, INIData& data, Clock& clock, NetworkProtocol& protocol,
                         Desktop& desktop, const SharedStatus& shared)
    : tmrChangeLimiter(clock, "tmrChangeLimiter", 2000, Timer::Kind::OneShot, [this] { m_limiter = false; }),
      m_own(own), m_data(data), m_clock(clock), m_protocol(protocol), m_desktop(desktop), m_shared(shared) {
    protocol.attach(Code::XAS0, [this](const cPacket&) { TurnOffStatus(); });
    protocol.attach(Code::XAS1, [this](const cPacket&) { TurnOffStatus(); });
    protocol.attach(Code::XAS2, [this](const cPacket& packet) { setStatusFrom(packet); });
    protocol.attach(Code::ZA05, [this](const cPacket& packet) {
        const QString record = packet.bodyValue(1);
        writeQuick(record.section(ListMark, 0, 0), true, record);
    });
    protocol.attach(Code::ZA06,
                    [this](const cPacket& packet) { writeQuick(packet.bodyValue(1), false, {}); });
}

void LocalStatus::SetStatus(int Index) {
    if (!m_own.canSend()) {
        return;
    }
    // A press that is refused below still moves the time.
    m_own.statusTime = m_clock.timeText();
    if (!m_limiter) {
        clearLatches();
    }
    if (Index < 0 || Index >= kQuickCount) {
        return;
    }
    const QuickStatus& button = quick(Index);
    if (button.Message.size() < kShortestStatus) {
        m_desktop.showWindow(WindowId::StatusOptions);
        return;
    }
    if (latched(Index)) {
        TurnOffStatus();
        return;
    }
    if (m_limiter) {
        return;
    }
    ActivateChangeLimiter();
    m_latches[static_cast<std::size_t>(Index)] = true;
    if (button.Shared.isEmpty()) {
        SetCustomStatus(button.Message);
        return;
    }
    const int entry = indexOf(button.Shared);
    if (Index >= kHotKeyCount && !m_shared.entry(entry).Active) {
        return;
    }
    SetStatusIDX(entry);
}

void LocalStatus::ActivateChangeLimiter() {
    m_limiter = true;
    tmrChangeLimiter.setEnabled(true);
}

void LocalStatus::apply(const QString& text) {
    m_own.statusTime = m_clock.timeText();
    // It travels in every packet from now on, whoever asked for it or wrote it into a file: it must not
    // grow too long to send.
    m_own.status = text.left(kMaxRowText);
    m_messageBar = m_own.status;
}

void LocalStatus::SetCustomStatus(const QString& Text) {
    if (Text.size() < kShortestStatus) {
        return;
    }
    apply(Text);
    for (int index = 0; index < kHotKeyCount; ++index) {
        if (quick(index).Message == Text) {
            m_latches[static_cast<std::size_t>(index)] = true;
        }
    }
    m_protocol.send(Code::XAS);
    emit changed();
}

bool LocalStatus::SetStatusIDX(int Index) {
    const SharedStatusEntry& entry = m_shared.entry(Index);
    if (entry.Label.size() < kShortestStatus) {
        return false;
    }
    apply(entry.Label);
    m_own.statusTone = entry.Tone;
    m_protocol.send(Code::XAS);
    emit changed();
    return true;
}

void LocalStatus::TurnOffStatus() {
    clearLatches();
    m_own.status.clear();
    m_own.statusTime.clear();
    m_own.statusTone.clear();
    m_messageBar.clear();
    m_protocol.send(Code::XAS);
    emit changed();
}

void LocalStatus::clearStatusOf(const QString& SID) {
    if (!SID.isEmpty()) {
        m_protocol.send(Code::XAS1, SID);
    }
}

void LocalStatus::SetDND() {
    m_own.doNotDisturb = !m_own.doNotDisturb;
    if (m_own.doNotDisturb) {
        m_desktop.showBalloon(kProductName, QStringLiteral("Do Not Disturb has been activated\r\n"
                                                           "All incoming sounds and popups have been muted"));
    }
    m_protocol.send(Code::XALU);
    emit doNotDisturbChanged();
}

bool LocalStatus::choose(const QString& text, int sharedIndex) {
    const QString trimmed = text.trimmed();
    if (trimmed.size() < kShortestStatus) {
        return false;
    }
    clearLatches();
    if (sharedIndex >= 0) {
        SetStatusIDX(sharedIndex);
    } else {
        SetCustomStatus(trimmed.left(kLongestStatus));
    }
    return true;
}

LocalStatus::Press LocalStatus::pressed(int Index) const {
    const QuickStatus& button = quick(Index);
    if (button.Message.size() < kShortestStatus) {
        return Press::OpensOptions;
    }
    const bool gone = !button.Shared.isEmpty() && !m_shared.entry(indexOf(button.Shared)).Active;
    return gone ? Press::AsksToEdit : Press::Sets;
}

void LocalStatus::setStatusFrom(const cPacket& packet) {
    const QString text = packet.bodyValue(1);
    const QString index = packet.bodyValue(2);
    if (index.isEmpty()) {
        SetCustomStatus(text);
        return;
    }
    const int entry = indexOf(index);
    if (m_shared.entry(entry).Label != text) {
        return;
    }
    if (!SetStatusIDX(entry)) {
        return;
    }
    emit setByOther(m_own.status, m_own.statusTone, packet.text(Field::Location), packet.text(Field::SID));
}

void LocalStatus::LoadStatusSettings() {
    for (int index = 0; index < kQuickCount; ++index) {
        const auto read = [this, index](const char* key) {
            return m_data.ReadSettingRaw(kStatusFile, kSection, QLatin1String(key) + QString::number(index));
        };
        QuickStatus& button = m_quick[static_cast<std::size_t>(index)];
        button = {read("N"), read("M"), {}, read("S")};
        if (index < kHotKeyCount) {
            const QString hotKey = read("H");
            button.HotKey = hotKey.isEmpty() ? QStringLiteral("0") : hotKey;
        }
    }
    emit quickStatusesLoaded();
}

void LocalStatus::writeQuick(const QString& slot, bool keep, const QString& record) {
    // The slot comes from outside and becomes part of a key: a number, or nothing is written.
    const int index = indexOf(slot);
    if (index < 0 || index >= kQuickCount) {
        return;
    }
    const QString number = QString::number(index);
    int part = 1;
    for (const char* const key : {"N", "M", "H"}) {
        const QString name = QLatin1String(key) + number;
        if (keep) {
            m_data.WriteSetting(kStatusFile, kSection, name, record.section(ListMark, part, part));
        } else {
            m_data.DeleteSetting(kStatusFile, kSection, name);
        }
        ++part;
    }
    LoadStatusSettings();
    if (index < kHotKeyCount) {
        emit hotKeyChanged(index);
    }
}

} // namespace tessel
