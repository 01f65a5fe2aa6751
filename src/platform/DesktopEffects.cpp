#include "platform/DesktopEffects.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace tessel {

namespace {

template <typename T> std::unique_ptr<T, decltype(&std::free)> owned(T* pointer) {
    return {pointer, &std::free};
}

// The manager that composes screen `number` owns a selection of this name.
bool isComposed(xcb_connection_t& connection, int number) {
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(number);
    const auto atom = owned(xcb_intern_atom_reply(
        &connection,
        xcb_intern_atom(&connection, 1, static_cast<std::uint16_t>(name.size()), name.constData()), nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE) {
        return false;
    }
    const auto owner = owned(xcb_get_selection_owner_reply(
        &connection, xcb_get_selection_owner(&connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

QString configFile(const char* name) {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QLatin1String(name));
}

} // namespace

DesktopEffects::DesktopEffects() {
    QTimer::singleShot(0, &m_asking, [this] { ask(); }); // the first window does not wait for this
}

void DesktopEffects::ask() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || m_asked) {
        return;
    }
    m_asked = true;
    QDBusMessage read = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    read << QStringLiteral("org.gnome.desktop.interface") << QStringLiteral("enable-animations");
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(read), &m_asking);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &m_asking, [this, answer] {
        m_asked = false;
        if (const QDBusPendingReply<QDBusVariant> value = *answer; value.isValid()) {
            // Some answer with the value in a wrapping of its own.
            QVariant inner = value.value().variant();
            if (inner.canConvert<QDBusVariant>()) {
                inner = inner.value<QDBusVariant>().variant();
            }
            m_animates = !inner.canConvert<bool>() || inner.toBool();
        }
        answer->deleteLater();
    });
}

bool DesktopEffects::composites() {
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        return true;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        return false;
    }
    int number = 0;
    xcb_connection_t* const connection = xcb_connect(nullptr, &number);
    const bool composed = xcb_connection_has_error(connection) == 0 && isComposed(*connection, number);
    xcb_disconnect(connection);
    return composed;
}

// Read where the desktops keep it: one of them as a factor of all times, others as a switch.
bool DesktopEffects::animates() {
    ask();
    if (!m_animates) {
        return false;
    }
    const QSettings plasma(configFile("kdeglobals"), QSettings::IniFormat);
    bool number = false;
    const double factor = plasma.value(QStringLiteral("KDE/AnimationDurationFactor")).toDouble(&number);
    if (number && factor <= 0) {
        return false;
    }
    for (const char* const file : {"gtk-3.0/settings.ini", "gtk-4.0/settings.ini"}) {
        const QSettings gtk(configFile(file), QSettings::IniFormat);
        const QString wanted = gtk.value(QStringLiteral("Settings/gtk-enable-animations")).toString();
        if (wanted == QLatin1String("0") ||
            wanted.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
            return false;
        }
    }
    return true;
}

} // namespace tessel
