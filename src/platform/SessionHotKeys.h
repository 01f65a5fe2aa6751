// The keys of today's session: bound by the desktop where it offers that, grabbed from the screen
// otherwise.
#pragma once

#include "engine/ports/cHotKeys.h"

#include <map>
#include <memory>

namespace tessel {

class PortalHotKeys;

class SessionHotKeys : public HotKeys {
    Q_OBJECT
public:
    // `bus`: the session's bus by its address; empty takes the environment's, and none is started.
    explicit SessionHotKeys(const QString& bus = {});
    ~SessionHotKeys() override;

    bool RegisterHotKey(int id, int modifier, int key, const QString& purpose) override;
    bool UnregisterHotKey(int id) override;
    bool holds(int id) const override;
    HotKeyRoad road() override;
    QString assigned(int id) const override;

private:
    struct Key {
        int modifier;
        int key;
        QString purpose;
    };

    void askSoon();
    void askDesktop();
    void desktopAnswered(bool offered);
    void desktopRefused();
    // Hands all keys to the desktop, once for a row of changes.
    void bindSoon();

    QString m_busAddress;
    std::unique_ptr<HotKeys> m_screen;
    std::unique_ptr<PortalHotKeys> m_desktop;
    std::map<int, Key> m_wanted;
    bool m_asked = false;
    bool m_byDesktop = false;
    bool m_binding = false;
    bool m_awaiting = false; // the desktop, or its user, has not answered yet
};

} // namespace tessel
