#include "engine/operations/mod_HotKeys.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cInifile.h"
#include "engine/core/cRestrictions.h"
#include "engine/ports/cHotKeys.h"
#include "engine/presence/mod_LocalStatus.h"

namespace tessel {

namespace {

constexpr int kBringUpId = 50; // nobody registers it

// Code 0 is none; code n stands at n - 1. The last one has no row in the boxes: it comes from afar.
struct CodeRow {
    int modifier;
    bool digit;
    const char* caption; // in front of the function key's or digit key's number
};
constexpr std::array<CodeRow, 5> kCodes{{{kModControl, false, "CRTL+F"},
                                         {kModShift, false, "SHFT+F"},
                                         {kModAlt, false, "ALT+F"},
                                         {kModControl, true, "CRTL+"},
                                         {kModAlt, true, nullptr}}};

} // namespace

QuickHotKeys::QuickHotKeys(const Restrictions& admin, LocalStatus& status, cErrorLog& log, HotKeys& keys)
    : m_admin(admin), m_status(status), m_log(log), m_keys(keys) {
    connect(&keys, &HotKeys::pressed, this, &QuickHotKeys::hotKeyPressed);
    connect(&keys, &HotKeys::changed, this, &QuickHotKeys::changed);
}

bool QuickHotKeys::restricted() const {
    return Restrictions::restricted(m_admin.HotKeys);
}

int QuickHotKeys::code(int slot) const {
    return cInifile::CLngDefault(m_status.quick(slot).HotKey, 0);
}

void QuickHotKeys::LoadHotKeys() {
    if (restricted()) {
        return;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        if (code(slot) > 0) {
            RegisterQuickHotKey(slot);
        }
    }
}

void QuickHotKeys::RegisterQuickHotKey(int slot) {
    RegisterQuickHotKey(slot, kFirstFunctionKey + slot, kFirstDigitKey + slot);
}

// The flag tells that the last call succeeded: giving a key up leaves it set, too, and the next call
// sets it anew.
void QuickHotKeys::RegisterQuickHotKey(int slot, int functionKey, int digitKey) {
    if (restricted() || slot < 0 || slot >= kSlots) {
        return;
    }
    bool& registered = HotKeyRegistered[static_cast<std::size_t>(slot)];
    const int wanted = code(slot);
    if (wanted <= 0) {
        if (registered) {
            registered = m_keys.UnregisterHotKey(slot);
        }
        emit changed();
        return;
    }
    if (wanted <= static_cast<int>(kCodes.size())) {
        const CodeRow& row = kCodes[static_cast<std::size_t>(wanted - 1)];
        if (registered) {
            m_keys.UnregisterHotKey(slot);
        }
        registered = m_keys.RegisterHotKey(slot, row.modifier, row.digit ? digitKey : functionKey,
                                           m_status.quick(slot).Name);
    }
    if (!registered) {
        m_log.LogEvent(QStringLiteral("HotKey"),
                       QStringLiteral("Cannot Register HotKey for Quick Key %1").arg(slot + 1),
                       QStringLiteral("HK%1").arg(slot));
    }
    emit changed();
}

// The numbers are one above those that were registered, so that the key of slot 0 stays held until the
// process ends.
void QuickHotKeys::UnloadHotKeys() {
    if (restricted()) {
        return;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        bool& registered = HotKeyRegistered[static_cast<std::size_t>(slot)];
        if (registered) {
            registered = m_keys.UnregisterHotKey(slot + 1);
        }
    }
}

QStringList QuickHotKeys::LoadQuickHotKeys(int slot) {
    QStringList rows{QStringLiteral("Disabled")};
    for (const CodeRow& row : kCodes) {
        if (row.caption != nullptr) {
            rows += QLatin1String(row.caption) + QString::number(slot + 1);
        }
    }
    return rows;
}

QuickHotKeys::State QuickHotKeys::state(int slot) const {
    if (restricted() || code(slot) <= 0) {
        return State::Off;
    }
    return m_keys.holds(slot) ? State::Held : State::Taken;
}

QString QuickHotKeys::notice(int slot) const {
    switch (state(slot)) {
    case State::Off:
        return {};
    case State::Taken:
        if (code(slot) > static_cast<int>(kCodes.size())) {
            return tr("There is no such key; choose another one"); // of a file that was edited by hand
        }
        return m_keys.road() == HotKeyRoad::None ? tr("No screen to take the key from")
                                                 : tr("Taken by another program");
    case State::Held:
        break;
    }
    const QString other = m_keys.assigned(slot);
    return other.isEmpty() ? QString() : tr("The desktop has set this key to: %1").arg(other);
}

HotKeyRoad QuickHotKeys::road() const {
    return m_keys.road();
}

void QuickHotKeys::hotKeyPressed(int id) {
    if (id >= 0 && id < kSlots) {
        m_status.SetStatus(id);
    } else if (id == kBringUpId) {
        emit bringUp();
    }
}

} // namespace tessel
