#include "engine/presence/mod_LocalStatus.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cPopupDisplay.h"
#include "engine/ports/cWindows.h"
#include "engine/presence/mod_SharedStatus.h"

#include <algorithm>

namespace tessel {

namespace {

const QString kSection = QStringLiteral("status");
constexpr int kHotKeyCount = 3;
constexpr int kLongestHotKey = 2; // digits of its code

// A whole number, or -1.
int indexOf(const QString& text) {
    bool ok = false;
    const int number = text.trimmed().toShort(&ok);
    return ok ? number : -1;
}

// A status travels in every packet, whoever asked for it or wrote it into a file: it must not break them,
// nor grow too long to send.
QString fitStatus(const QString& text) {
    return FitText(QStringView(text).left(kMaxRowText));
}

} // namespace

LocalStatus::LocalStatus(OwnState& own, INIData& data, Clock& clock, NetworkProtocol& protocol,
                         Windows& windows, PopupDisplay& display, const SharedStatus& shared)
    : tmrChangeLimiter(clock, "tmrChangeLimiter", 2000, Timer::Kind::OneShot, [this] { m_limiter = false; }),
      m_own(own), m_data(data), m_clock(clock), m_protocol(protocol), m_windows(windows), m_display(display),
      m_shared(shared) {
    protocol.attach(Code::XAS0, [this](const cPacket&) { TurnOffStatus(); });
    protocol.attach(Code::XAS1, [this](const cPacket&) { TurnOffStatus(); });
    protocol.attach(Code::XAS2, [this](const cPacket& packet) { setStatusFrom(packet); });
    protocol.attach(Code::ZA05, [this](const cPacket& packet) { SetQuickStatusRemote(packet.bodyValue(1)); });
    protocol.attach(Code::ZA06,
                    [this](const cPacket& packet) { ClearQuickStatusRemote(packet.bodyValue(1)); });
}

void LocalStatus::SetStatus(int Index) {
    if (!m_own.canSend()) {
        emit pressedOffline();
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
        m_windows.show({.window = WindowId::Options, .slot = Index});
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
    m_own.status = text;
    m_messageBar = m_own.status;
}

void LocalStatus::SetCustomStatus(const QString& Text) {
    const QString status = fitStatus(Text);
    if (status.size() < kShortestStatus) {
        return;
    }
    apply(status);
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
    const QString label = fitStatus(entry.Label);
    if (label.size() < kShortestStatus) {
        return false;
    }
    apply(label);
    m_own.statusTone = fitStatus(entry.Tone);
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
        m_display.Set_TrayPopup(kProductName,
                                QStringLiteral("Do Not Disturb has been activated\r\n"
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

// The slot comes from outside and becomes part of a key: a number, or nothing is written.
void LocalStatus::SetQuickStatusRemote(const QString& text) {
    const int slot = indexOf(text.section(ListMark, 0, 0));
    if (slot < 0 || slot >= kQuickCount) {
        return;
    }
    const QString number = QString::number(slot);
    m_data.WriteSettings(kStatusFile, kSection,
                         {{u'N' + number, text.section(ListMark, 1, 1).left(kLongestStatus)},
                          {u'M' + number, text.section(ListMark, 2, 2).left(kLongestStatus)},
                          {u'H' + number, text.section(ListMark, 3, 3).left(kLongestHotKey)}});
    quickStatusWritten(slot);
}

void LocalStatus::ClearQuickStatusRemote(const QString& text) {
    const int slot = indexOf(text);
    if (slot < 0 || slot >= kQuickCount) {
        return;
    }
    std::vector<cIniDocument::Change> gone;
    for (const char16_t key : {u'N', u'M', u'H'}) {
        gone.push_back({kSection, key + QString::number(slot), std::nullopt});
    }
    m_data.WriteChanges(kStatusFile, gone);
    quickStatusWritten(slot);
}

void LocalStatus::quickStatusWritten(int slot) {
    LoadStatusSettings();
    if (slot < kHotKeyCount) {
        emit hotKeyChanged(slot);
    }
}

int LocalStatus::SaveStatus(const std::array<QuickRow, kQuickCount>& rows) {
    for (int slot = 0; slot < kQuickCount; ++slot) {
        if (rows[static_cast<std::size_t>(slot)].Message.trimmed().size() == 1) {
            return slot;
        }
    }
    std::vector<cIniDocument::Change> changes;
    const auto put = [&changes](const QString& key, const std::optional<QString>& value) {
        changes.push_back({kSection, key, value});
    };
    for (int slot = 0; slot < kQuickCount; ++slot) {
        const QuickRow& row = rows[static_cast<std::size_t>(slot)];
        const QString number = QString::number(slot);
        const QString name = row.Name.trimmed().left(kLongestStatus);
        const bool kept = name.size() >= kShortestStatus;
        put(u'N' + number, kept ? std::optional(name) : std::nullopt);
        put(u'M' + number, kept ? std::optional(row.Message.trimmed().left(kLongestStatus)) : std::nullopt);
        put(u'S' + number,
            kept && row.Shared >= 0 ? std::optional(QString::number(row.Shared)) : std::nullopt);
        if (slot < kHotKeyCount && row.HotKey >= 0) {
            put(u'H' + number, QString::number(row.HotKey));
        }
    }
    m_data.WriteChanges(kStatusFile, changes);
    LoadStatusSettings();
    for (int slot = 0; slot < kHotKeyCount; ++slot) {
        emit hotKeyChanged(slot);
    }
    return -1;
}

} // namespace tessel
