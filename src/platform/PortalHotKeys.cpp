#include "platform/PortalHotKeys.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace tessel {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
const QString kSession = QStringLiteral("org.freedesktop.portal.Session");
const QString kIdPrefix = QStringLiteral("quick-status-");
// The desktop may ask its user first; that takes as long as it takes. This is for the service itself.
constexpr int kAnswerMs = 5000;

struct Shortcut {
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

int numberOf(const QString& id) {
    bool ok = false;
    const int number = id.startsWith(kIdPrefix) ? id.sliced(kIdPrefix.size()).toInt(&ok) : 0;
    return ok ? number : -1;
}

QDBusMessage call(const QString& path, const QString& interface, const QString& method) {
    return QDBusMessage::createMethodCall(kService, path, interface, method);
}

} // namespace

} // namespace tessel

Q_DECLARE_METATYPE(tessel::Shortcut)

namespace tessel {

PortalHotKeys::PortalHotKeys(const QDBusConnection& bus, QObject* parent) : QObject(parent), m_bus(bus) {
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    auto* const watcher =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalHotKeys::serviceOwnerChanged);
    m_bus.connect(kService, kPath, kShortcuts, QStringLiteral("Activated"), this,
                  SLOT(activated(QDBusMessage)));
    m_bus.connect(kService, kPath, kShortcuts, QStringLiteral("ShortcutsChanged"), this,
                  SLOT(shortcutsChanged(QDBusMessage)));
}

PortalHotKeys::~PortalHotKeys() {
    endSession();
}

void PortalHotKeys::probe() {
    QDBusMessage question =
        call(kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << kShortcuts << QStringLiteral("version");
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question, kAnswerMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        emit answered(!reply.isError());
    });
}

void PortalHotKeys::endSession() {
    if (!m_session.isEmpty()) {
        m_bus.send(call(m_session, kSession, QStringLiteral("Close")));
        m_session.clear();
    }
    m_bound.clear();
}

// A session takes one list of keys in its life, so that other keys need another session.
bool PortalHotKeys::bind(const std::map<int, Wanted>& wanted) {
    if (wanted == m_wanted) {
        return false;
    }
    endSession();
    m_wanted = wanted;
    if (m_wanted.empty()) {
        return false;
    }
    request("CreateSession", {},
            {{QStringLiteral("session_handle_token"), QStringLiteral("tessel%1").arg(++m_tokens)}},
            SLOT(sessionMade(uint, QVariantMap)));
    return true;
}

void PortalHotKeys::request(const char* method, const QVariantList& arguments, QVariantMap options,
                            const char* slot) {
    const QString token = QStringLiteral("tessel%1").arg(++m_tokens);
    options.insert(QStringLiteral("handle_token"), token);
    // The answer may come before the call returns, so it is listened for first, at the path that the
    // service makes of the caller's name and the token.
    if (!m_request.isEmpty()) {
        m_bus.disconnect(kService, m_request, kRequest, QStringLiteral("Response"), this, nullptr);
    }
    QString sender = m_bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    m_request = kPath + QStringLiteral("/request/") + sender + u'/' + token;
    m_bus.connect(kService, m_request, kRequest, QStringLiteral("Response"), this, slot);

    QDBusMessage message = call(kPath, kShortcuts, QLatin1String(method));
    message.setArguments(QVariantList(arguments) << options);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, kAnswerMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, asked = m_request](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (finished->isError() && asked == m_request) {
                    emit refused();
                }
            });
}

void PortalHotKeys::sessionMade(uint response, const QVariantMap& results) {
    m_session = results.value(QStringLiteral("session_handle")).toString();
    if (response != 0 || m_session.isEmpty()) {
        emit refused();
        return;
    }
    QList<Shortcut> shortcuts;
    for (const auto& [id, wanted] : m_wanted) {
        shortcuts.append({kIdPrefix + QString::number(id),
                          {{QStringLiteral("description"), wanted.purpose},
                           {QStringLiteral("preferred_trigger"), wanted.trigger}}});
    }
    request("BindShortcuts",
            {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString()}, {},
            SLOT(shortcutsBound(uint, QVariantMap)));
}

void PortalHotKeys::takeShortcuts(const QVariant& list) {
    m_bound.clear();
    if (!list.canConvert<QDBusArgument>()) {
        return;
    }
    const auto argument = list.value<QDBusArgument>();
    if (argument.currentSignature() != u"a(sa{sv})") {
        return;
    }
    for (const Shortcut& shortcut : qdbus_cast<QList<Shortcut>>(argument)) {
        const int number = numberOf(shortcut.id);
        if (m_wanted.contains(number)) {
            m_bound[number] = shortcut.properties.value(QStringLiteral("trigger_description")).toString();
        }
    }
}

void PortalHotKeys::shortcutsBound(uint response, const QVariantMap& results) {
    if (response != 0) {
        endSession();
        emit refused();
        return;
    }
    takeShortcuts(results.value(QStringLiteral("shortcuts")));
    emit bound();
}

void PortalHotKeys::activated(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session) {
        return;
    }
    const int number = numberOf(arguments[1].toString());
    if (m_bound.contains(number)) {
        emit pressed(number);
    }
}

void PortalHotKeys::shortcutsChanged(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (arguments.size() == 2 && arguments[0].value<QDBusObjectPath>().path() == m_session) {
        takeShortcuts(arguments[1]);
        emit bound();
    }
}

void PortalHotKeys::serviceOwnerChanged(const QString& /*service*/, const QString& before,
                                        const QString& now) {
    if (!before.isEmpty()) {
        m_session.clear();
        m_bound.clear();
        m_wanted.clear();
        emit refused();
    }
    if (!now.isEmpty()) {
        probe();
    }
}

QString PortalHotKeys::trigger(int id) const {
    const auto found = m_bound.find(id);
    return found == m_bound.end() ? QString() : found->second;
}

} // namespace tessel
