#include "platform/SessionHotKeys.h"

#include "platform/PortalHotKeys.h"
#include "platform/X11HotKeys.h"

#include <QFile>
#include <QTimer>

namespace tessel {

namespace {

const QString kConnectionName = QStringLiteral("TesselHotKeys");
constexpr int kFirstFunctionKey = 112;

// A key in the notation of the desktops' shortcut descriptions.
QString triggerOf(int modifier, int key) {
    const QString with = modifier == kModControl ? QStringLiteral("CTRL+")
                         : modifier == kModShift ? QStringLiteral("SHIFT+")
                                                 : QStringLiteral("ALT+");
    return with + (key >= kFirstFunctionKey ? QStringLiteral("F%1").arg(key - kFirstFunctionKey + 1)
                                            : QString(QChar(key)));
}

bool isWayland() {
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland" ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// The address of a bus that is there: looking for one must not start one.
QString sessionBus() {
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!address.isEmpty() || runtime.isEmpty() || !QFile::exists(runtime + QLatin1String("/bus"))) {
        return address;
    }
    return QLatin1String("unix:path=") + runtime + QLatin1String("/bus");
}

} // namespace

SessionHotKeys::SessionHotKeys(const QString& bus)
    : m_busAddress(bus), m_screen(std::make_unique<X11HotKeys>()) {
    connect(m_screen.get(), &HotKeys::pressed, this, &HotKeys::pressed);
    connect(m_screen.get(), &HotKeys::changed, this, &HotKeys::changed);
}

SessionHotKeys::~SessionHotKeys() {
    if (m_desktop) {
        m_desktop.reset();
        QDBusConnection::disconnectFromBus(kConnectionName);
    }
}

// Not while the program starts.
void SessionHotKeys::askSoon() {
    if (!std::exchange(m_asked, true)) {
        QTimer::singleShot(0, this, &SessionHotKeys::askDesktop);
    }
}

void SessionHotKeys::askDesktop() {
    const QString address = m_busAddress.isEmpty() ? sessionBus() : m_busAddress;
    if (address.isEmpty()) {
        return;
    }
    const QDBusConnection bus = QDBusConnection::connectToBus(address, kConnectionName);
    if (!bus.isConnected()) {
        return;
    }
    m_desktop = std::make_unique<PortalHotKeys>(bus);
    connect(m_desktop.get(), &PortalHotKeys::answered, this, &SessionHotKeys::desktopAnswered);
    connect(m_desktop.get(), &PortalHotKeys::refused, this, &SessionHotKeys::desktopRefused);
    connect(m_desktop.get(), &PortalHotKeys::bound, this, [this] {
        m_awaiting = false;
        emit changed();
    });
    connect(m_desktop.get(), &PortalHotKeys::pressed, this, &HotKeys::pressed);
    m_desktop->probe();
}

// The desktop may hold the keys in the same way, and cannot while the screen gave them to this program.
void SessionHotKeys::desktopAnswered(bool offered) {
    if (!offered || m_byDesktop) {
        return;
    }
    m_byDesktop = true;
    for (const auto& [id, key] : m_wanted) {
        m_screen->UnregisterHotKey(id);
    }
    bindSoon();
}

void SessionHotKeys::desktopRefused() {
    if (!m_byDesktop) {
        return;
    }
    m_byDesktop = false;
    m_awaiting = false;
    for (const auto& [id, key] : m_wanted) {
        m_screen->RegisterHotKey(id, key.modifier, key.key, key.purpose);
    }
    emit changed();
}

void SessionHotKeys::bindSoon() {
    m_awaiting = true;
    if (std::exchange(m_binding, true)) {
        return;
    }
    QTimer::singleShot(0, this, [this] {
        m_binding = false;
        if (!m_byDesktop) {
            return;
        }
        std::map<int, PortalHotKeys::Wanted> keys;
        for (const auto& [id, key] : m_wanted) {
            keys[id] = {triggerOf(key.modifier, key.key), key.purpose};
        }
        m_awaiting = m_desktop->bind(keys);
    });
}

bool SessionHotKeys::RegisterHotKey(int id, int modifier, int key, const QString& purpose) {
    m_wanted[id] = {modifier, key, purpose};
    if (m_byDesktop) {
        bindSoon();
        return true;
    }
    askSoon();
    return m_screen->RegisterHotKey(id, modifier, key, purpose);
}

bool SessionHotKeys::UnregisterHotKey(int id) {
    const bool wanted = m_wanted.erase(id) > 0;
    if (m_byDesktop) {
        bindSoon();
        return wanted;
    }
    return m_screen->UnregisterHotKey(id);
}

bool SessionHotKeys::holds(int id) const {
    if (m_byDesktop) {
        return m_awaiting ? m_wanted.contains(id) : m_desktop->isBound(id);
    }
    return m_screen->holds(id);
}

HotKeyRoad SessionHotKeys::road() {
    if (m_byDesktop) {
        return HotKeyRoad::Desktop;
    }
    askSoon();
    return isWayland() ? HotKeyRoad::ForeignScreen : m_screen->road();
}

QString SessionHotKeys::assigned(int id) const {
    return m_byDesktop ? m_desktop->trigger(id) : QString();
}

} // namespace tessel
