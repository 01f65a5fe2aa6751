#include "windows/mainwindow/frmTray.h"

#include "controls/look/Images.h"
#include "engine/station.h"

namespace tessel {

namespace {
constexpr int kBalloonMs = 15000;
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
    SetIcon();
    m_tray.show();
}

bool Tray::isThere() const {
    return QSystemTrayIcon::isSystemTrayAvailable() && m_tray.isVisible();
}

bool Tray::Set_TrayPopup(const QString& title, const QString& text) {
    if (!isThere() || !QSystemTrayIcon::supportsMessages()) {
        return false;
    }
    // Some desktops read mark-up in these notes.
    m_tray.showMessage(title, text.toHtmlEscaped(), QSystemTrayIcon::Information, kBalloonMs);
    return true;
}

void Tray::SetIcon() {
    const OwnState& own = m_station.own;
    const Image picture = own.doNotDisturb        ? Image::TrayDoNotDisturb
                          : !own.canSend()        ? Image::TrayOffline
                          : !own.status.isEmpty() ? Image::TrayStatus
                                                  : Image::TrayNormal;
    if (m_shown != static_cast<int>(picture)) {
        m_shown = static_cast<int>(picture);
        m_tray.setIcon(m_icon(m_shown));
    }
}

} // namespace tessel
