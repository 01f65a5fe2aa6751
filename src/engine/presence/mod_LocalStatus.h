// This location's own status: quick statuses, custom and shared ones, and do not disturb.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

#include <array>

namespace tessel {

class cPacket;
class INIData;
class NetworkProtocol;
class PopupDisplay;
class SharedStatus;
class Windows;
struct OwnState;

// One button of the quick statuses. Without a message of at least 2 characters it is not configured.
struct QuickStatus {
    QString Name;
    QString Message;
    QString HotKey; // buttons 0 to 2 only
    QString Shared; // index into the shared statuses, empty for a plain one
};

// The same as it is edited.
struct QuickRow {
    QString Name;
    QString Message;
    int Shared = -1; // index into the shared statuses; -1: a plain text
    int HotKey = 0;  // code; -1 leaves what is stored
};

class LocalStatus : public QObject {
    Q_OBJECT
public:
    static constexpr int kQuickCount = 9;
    static constexpr int kShortestStatus = 2;
    static constexpr int kLongestStatus = 25;

    LocalStatus(OwnState& own, INIData& data, Clock& clock, NetworkProtocol& protocol, Windows& windows,
                PopupDisplay& display, const SharedStatus& shared);

    // The action of quick button `Index`, 0 to 8. While offline nothing changes.
    void SetStatus(int Index);
    void TurnOffStatus();
    // A plain status. Nothing happens for fewer than 2 characters. A tone that an earlier shared status
    // left stays until the status is turned off.
    void SetCustomStatus(const QString& Text);
    // Asks another location to turn its status off.
    void clearStatusOf(const QString& SID);
    // Shared status `Index`. False, and nothing happens, outside 0 to 24 and for an empty entry.
    bool SetStatusIDX(int Index);
    // Toggles do not disturb.
    void SetDND();
    void ActivateChangeLimiter();

    // The act of "Set" in the status window: clears the latches, then sets what was chosen.
    // `sharedIndex`: -1 for a typed text. False, and nothing changes, for fewer than 2 characters.
    bool choose(const QString& text, int sharedIndex);
    // What pressing quick button `Index` in the status window does.
    enum class Press { Sets, AsksToEdit, OpensOptions };
    Press pressed(int Index) const;

    // Reads status.dat.
    void LoadStatusSettings();
    // Writes the quick statuses. A row without a name of at least 2 characters is deleted. The number of
    // the first row whose message has exactly one character, and nothing is written; -1 otherwise.
    int SaveStatus(const std::array<QuickRow, kQuickCount>& rows);
    // Writes one quick status, given as slot, name, message and hot key, joined by `ListMark`.
    void SetQuickStatusRemote(const QString& text);
    // Deletes the quick status with this number.
    void ClearQuickStatusRemote(const QString& text);
    const QuickStatus& quick(int Index) const { return m_quick[static_cast<std::size_t>(Index)]; }
    bool latched(int Index) const { return m_latches[static_cast<std::size_t>(Index)]; }
    const SharedStatus& shared() const { return m_shared; }

    // Text of the bar "My Status:", empty while there is none.
    const QString& messageBar() const { return m_messageBar; }

    Timer tmrChangeLimiter;

signals:
    // The own status, its latches or the message bar changed.
    void changed();
    void doNotDisturbChanged();
    // Names of the quick statuses were read anew.
    void quickStatusesLoaded();
    // The hot key of quick button 0, 1 or 2 is to be registered anew.
    void hotKeyChanged(int Index);
    // A quick button or its key was pressed while nothing can be sent.
    void pressedOffline();
    // Another location set a shared status here: its text and tone are to be noticed.
    void setByOther(const QString& text, const QString& tone, const QString& location, const QString& SID);

private:
    void setStatusFrom(const cPacket& packet);
    void quickStatusWritten(int slot);
    void apply(const QString& text);
    void clearLatches() { m_latches.fill(false); }

    OwnState& m_own;
    INIData& m_data;
    Clock& m_clock;
    NetworkProtocol& m_protocol;
    Windows& m_windows;
    PopupDisplay& m_display;
    std::array<QuickStatus, kQuickCount> m_quick;
    std::array<bool, kQuickCount + 1> m_latches{};
    const SharedStatus& m_shared;
    QString m_messageBar;
    bool m_limiter = false;
};

} // namespace tessel
