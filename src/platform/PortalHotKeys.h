// Keys that the desktop binds for programs which ask it over D-Bus.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <map>

class QDBusMessage;

namespace tessel {

// All keys are bound together: the desktop shows its user one list of them, and may give other keys
// than those that were asked for.
class PortalHotKeys : public QObject {
    Q_OBJECT
public:
    struct Wanted {
        QString trigger; // "CTRL+F1"
        QString purpose;
        bool operator==(const Wanted&) const = default;
    };

    explicit PortalHotKeys(const QDBusConnection& bus, QObject* parent = nullptr);
    ~PortalHotKeys() override;

    // Asks whether the desktop offers this at all; `answered` tells.
    void probe();
    // Binds these keys instead of all before. False when they are bound already: no answer comes.
    bool bind(const std::map<int, Wanted>& wanted);
    bool isBound(int id) const { return m_bound.contains(id); }
    // The desktop's words for the key.
    QString trigger(int id) const;

signals:
    void answered(bool offered);
    // `isBound` and `trigger` tell what became of it.
    void bound();
    // The user or the desktop refused, or the desktop's service is gone.
    void refused();
    void pressed(int id);

private slots: // NOLINT(readability-redundant-access-specifiers): moc reads it
    void sessionMade(uint response, const QVariantMap& results);
    void shortcutsBound(uint response, const QVariantMap& results);
    void activated(const QDBusMessage& message);
    void shortcutsChanged(const QDBusMessage& message);
    void serviceOwnerChanged(const QString& service, const QString& before, const QString& now);

private:
    void endSession();
    // Calls a method that answers through a request object; `slot` takes the answer.
    void request(const char* method, const QVariantList& arguments, QVariantMap options, const char* slot);
    void takeShortcuts(const QVariant& list);

    QDBusConnection m_bus;
    std::map<int, Wanted> m_wanted;
    std::map<int, QString> m_bound;
    QString m_session; // its path; empty for none
    QString m_request; // the path whose answer is awaited
    int m_tokens = 0;
};

} // namespace tessel
