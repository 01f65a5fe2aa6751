// Keys of the desktop: bound by a service on a bus of the test's own. Grabs need a screen, and are
// tested with the whole program.
#include "platform/SessionHotKeys.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QSet>
#include <QSignalSpy>

using namespace tessel;

namespace {

struct BoundKey {
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const BoundKey& key) {
    argument.beginStructure();
    argument << key.id << key.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BoundKey& key) {
    argument.beginStructure();
    argument >> key.id >> key.properties;
    argument.endStructure();
    return argument;
}

} // namespace

Q_DECLARE_METATYPE(BoundKey)

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

// A desktop's service: it gives every key with Super in place of the modifier that was asked for.
class Portal : public QDBusVirtualObject {
public:
    explicit Portal(const QString& address)
        : m_bus(QDBusConnection::connectToBus(address, QStringLiteral("portal"))) {
        qDBusRegisterMetaType<BoundKey>();
        qDBusRegisterMetaType<QList<BoundKey>>();
        m_bus.registerVirtualObject(kPath, this, QDBusConnection::SubPath);
    }
    ~Portal() override {
        m_bus.unregisterObject(kPath, QDBusConnection::UnregisterTree);
        QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    }
    bool serve() { return m_bus.registerService(kService); }
    void goAway() { m_bus.unregisterService(kService); }

    bool refuses = false;
    QStringList asked;    // triggers of the last list
    QSet<QString> closed; // sessions
    QString session;

    void activate(const QString& id, const QString& in) {
        QDBusMessage signal = QDBusMessage::createSignal(kPath, kShortcuts, QStringLiteral("Activated"));
        signal << QVariant::fromValue(QDBusObjectPath(in)) << id << qulonglong{1} << QVariantMap();
        m_bus.send(signal);
    }
    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QVariantList arguments = message.arguments();
        if (message.member() == u"Get") {
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(1U))));
            return true;
        }
        if (message.member() == u"Close") {
            closed.insert(message.path());
            return true;
        }
        QVariantMap results;
        const auto options = qdbus_cast<QVariantMap>(arguments.last());
        const QString sender = message.service().mid(1).replace(u'.', u'_');
        if (message.member() == u"CreateSession") {
            session = kPath + QStringLiteral("/session/") + sender + u'/' +
                      options.value(QStringLiteral("session_handle_token")).toString();
            results.insert(QStringLiteral("session_handle"), session);
        } else if (message.member() == u"BindShortcuts") {
            auto keys = qdbus_cast<QList<BoundKey>>(arguments.at(1));
            asked.clear();
            for (BoundKey& key : keys) {
                const QString trigger = key.properties.value(QStringLiteral("preferred_trigger")).toString();
                asked += trigger;
                key.properties = {{QStringLiteral("trigger_description"),
                                   QString(QStringLiteral("Super+") + trigger.section(u'+', 1))}};
            }
            results.insert(QStringLiteral("shortcuts"), QVariant::fromValue(keys));
        } else {
            return false;
        }
        const QString request = kPath + QStringLiteral("/request/") + sender + u'/' +
                                options.value(QStringLiteral("handle_token")).toString();
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        QDBusMessage response = QDBusMessage::createSignal(
            request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        response << uint(refuses ? 1 : 0) << results;
        bus.send(response);
        return true;
    }

private:
    QDBusConnection m_bus;
};

class DesktopKeys : public testing::Test {
protected:
    DesktopKeys() {
        m_daemon.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
        m_daemon.waitForReadyRead(kTooLongMs);
        address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~DesktopKeys() override {
        m_daemon.terminate();
        m_daemon.waitForFinished(kTooLongMs);
    }
    QString address;

private:
    QProcess m_daemon;
};

} // namespace

TEST_F(DesktopKeys, AreBoundByTheDesktopWhichMayChooseOthers) {
    ASSERT_FALSE(address.isEmpty());
    Portal portal(address);
    ASSERT_TRUE(portal.serve());
    SessionHotKeys keys(address);
    QSignalSpy pressed(&keys, &HotKeys::pressed);
    keys.RegisterHotKey(0, kModControl, 112, "At the desk");
    keys.RegisterHotKey(2, kModAlt, 51, "Lunch");
    ASSERT_TRUE(waitUntil([&] { return !keys.assigned(2).isEmpty(); }));
    EXPECT_EQ(keys.road(), HotKeyRoad::Desktop);
    EXPECT_EQ(portal.asked, (QStringList{"CTRL+F1", "ALT+3"}));
    EXPECT_EQ(keys.assigned(0), "Super+F1");
    EXPECT_FALSE(keys.holds(1));

    portal.activate("quick-status-2", portal.session);
    portal.activate("quick-status-0", portal.session + "x");
    portal.activate("anything", portal.session);
    ASSERT_TRUE(waitUntil([&] { return pressed.count() > 0; }));
    letPass();
    ASSERT_EQ(pressed.count(), 1) << "keys of other programs are not ours";
    EXPECT_EQ(pressed.at(0).at(0).toInt(), 2);

    // Another choice in the options: one new list in a session of its own.
    const QString before = portal.session;
    EXPECT_TRUE(keys.UnregisterHotKey(0));
    EXPECT_TRUE(keys.RegisterHotKey(0, kModShift, 112, "At the desk"));
    EXPECT_TRUE(keys.UnregisterHotKey(2));
    ASSERT_TRUE(
        waitUntil([&] { return portal.asked == QStringList{"SHIFT+F1"} && !keys.assigned(0).isEmpty(); }));
    EXPECT_TRUE(portal.closed.contains(before));
    EXPECT_FALSE(keys.holds(2));

    portal.goAway();
    ASSERT_TRUE(waitUntil([&] { return keys.road() != HotKeyRoad::Desktop; }));
    EXPECT_TRUE(keys.assigned(0).isEmpty());
    ASSERT_TRUE(portal.serve());
    EXPECT_TRUE(waitUntil([&] { return keys.assigned(0) == u"Super+F1"; })) << "the service was started anew";
}

TEST_F(DesktopKeys, AUserWhoRefusesGetsTheScreensKeysAgain) {
    Portal portal(address);
    portal.refuses = true;
    ASSERT_TRUE(portal.serve());
    SessionHotKeys keys(address);
    QSignalSpy changed(&keys, &HotKeys::changed);
    keys.RegisterHotKey(0, kModControl, 112, "At the desk");
    ASSERT_TRUE(waitUntil([&] { return changed.count() > 0; }));
    EXPECT_EQ(keys.road(), HotKeyRoad::None) << "there is no screen here";
    EXPECT_FALSE(keys.holds(0));
}
