// The system-wide keys of the first three quick statuses.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>

namespace tessel {

class cErrorLog;
class HotKeys;
class LocalStatus;
enum class HotKeyRoad;
struct Restrictions;

class QuickHotKeys : public QObject {
    Q_OBJECT
public:
    static constexpr int kSlots = 3;
    static constexpr int kFirstFunctionKey = 112;
    static constexpr int kFirstDigitKey = 49;

    QuickHotKeys(const Restrictions& admin, LocalStatus& status, cErrorLog& log, HotKeys& keys);

    // Holds the keys of all slots that have one. Like `UnloadHotKeys` nothing while restricted.
    void LoadHotKeys();
    void UnloadHotKeys();
    // Holds or gives up the key of slot 0, 1 or 2 according to its code in the quick statuses. A key
    // that another program has is one line in error.txt.
    void RegisterQuickHotKey(int slot, int functionKey, int digitKey);
    // The same with the keys that belong to the slot.
    void RegisterQuickHotKey(int slot);

    // What a box to choose the key of a slot shows; the row is the code.
    static QStringList LoadQuickHotKeys(int slot);
    bool restricted() const;

    enum class State { Off, Held, Taken };
    State state(int slot) const;
    // What the user should know of slot's key: empty while all is as it was asked for.
    QString notice(int slot) const;
    HotKeyRoad road() const;
    const HotKeys& keys() const { return m_keys; }

signals:
    // States or notices are different now.
    void changed();
    // The main window is asked for by key.
    void bringUp();

private:
    void hotKeyPressed(int id);
    int code(int slot) const;

    const Restrictions& m_admin;
    LocalStatus& m_status;
    cErrorLog& m_log;
    HotKeys& m_keys;
    std::array<bool, kSlots> HotKeyRegistered{};
};

} // namespace tessel
