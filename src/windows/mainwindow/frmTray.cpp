#include "windows/mainwindow/frmTray.h"

#include "controls/look/Images.h"
#include "engine/station.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPainter>

#include <algorithm>

namespace tessel {

namespace {
constexpr int kBalloonMs = 15000;
constexpr QRgb kMark = 0xFFE0393E;

// The picture with a dot in its corner: somebody has rung.
QIcon marked(const QIcon& icon) {
    QIcon made;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        QPixmap picture = icon.pixmap(QSize(side, side));
        if (picture.isNull()) {
            continue;
        }
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const double dot = side * 0.5;
        painter.setPen(QPen(Qt::white, std::max(1.0, side / 16.0)));
        painter.setBrush(QColor(kMark));
        painter.drawEllipse(QRectF(side - dot - 1, 1, dot, dot));
        painter.end();
        made.addPixmap(picture);
    }
    return made;
}
} // namespace

Tray::Tray(Station& station, std::function<QIcon(int)> icon, QObject* parent)
    : QObject(parent), m_station(station), m_icon(std::move(icon)) {
    m_menu.addAction(tr("&Show"), this, &Tray::showRequested);
    m_menu.addAction(tr("&Reset Position"), this, &Tray::resetRequested);
    m_menu.addSeparator();
    m_menu.addAction(tr("E&xit"), this, &Tray::exitRequested);
    m_tray.setContextMenu(&m_menu);
    m_tray.setToolTip(kProductName);
    connect(&m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Context) {
            emit clicked();
        }
    });
    connect(&m_station.status, &LocalStatus::changed, this, &Tray::SetIcon);
    connect(&m_station.status, &LocalStatus::doNotDisturbChanged, this, &Tray::SetIcon);
    connect(&m_station.footer, &Footer::changed, this, &Tray::SetIcon);
    connect(&m_station.alertBar, &AlertBar::changed, this, &Tray::SetIcon);
    SetIcon();
    m_tray.show();
    askForMarkUp();
}

// A note beside an icon of the desktop's own service goes to another service, which may read mark-up and
// says so. Beside any other icon it is drawn by Qt, as plain text.
void Tray::askForMarkUp() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    m_markUpRead = bus.isConnected();
    if (!m_markUpRead) {
        return;
    }
    const QString notes = QStringLiteral("org.freedesktop.Notifications");
    const QDBusPendingCall call = bus.asyncCall(QDBusMessage::createMethodCall(
        notes, QStringLiteral("/org/freedesktop/Notifications"), notes, QStringLiteral("GetCapabilities")));
    auto* const answer = new QDBusPendingCallWatcher(call, this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, bus, answer] {
        const QDBusPendingReply<QStringList> abilities = *answer;
        m_markUpRead = abilities.isValid() && abilities.value().contains(QLatin1String("body-markup")) &&
                       bus.interface()->isServiceRegistered(QStringLiteral("org.kde.StatusNotifierWatcher"));
        answer->deleteLater();
    });
}

bool Tray::isThere() const {
    return QSystemTrayIcon::isSystemTrayAvailable() && m_tray.isVisible();
}

bool Tray::Set_TrayPopup(const QString& title, const QString& text) {
    if (!isThere() || !QSystemTrayIcon::supportsMessages()) {
        return false;
    }
    m_tray.showMessage(title, m_markUpRead ? text.toHtmlEscaped() : text, QSystemTrayIcon::Information,
                       kBalloonMs);
    return true;
}

void Tray::SetIcon() {
    const OwnState& own = m_station.own;
    const Image picture = own.doNotDisturb        ? Image::TrayDoNotDisturb
                          : !own.canSend()        ? Image::TrayOffline
                          : !own.status.isEmpty() ? Image::TrayStatus
                                                  : Image::TrayNormal;
    const bool alerted = m_station.alertBar.AlertBarShown();
    if (m_shown != static_cast<int>(picture) || m_marked != alerted) {
        m_shown = static_cast<int>(picture);
        m_marked = alerted;
        m_tray.setIcon(alerted ? marked(m_icon(m_shown)) : m_icon(m_shown));
    }
    QString tip = kProductName;
    if (alerted) {
        const AlertBar::Content& alert = m_station.alertBar.content();
        tip += QStringLiteral(" \u2013 ") + alert.title + u' ' + alert.name;
        tip.replace(u'<', QChar(0x2039)); // whoever shows it may take it for mark-up
    }
    if (m_tray.toolTip() != tip) {
        m_tray.setToolTip(tip);
    }
}

} // namespace tessel
