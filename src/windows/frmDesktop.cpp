#include "windows/frmDesktop.h"

#include "engine/core/mod_FileTools.h"
#include "engine/ports/cWindowRegistry.h"
#include "engine/station.h"
#include "windows/alerts/frmGlobalDoorBell.h"
#include "windows/alerts/frmNotifications.h"
#include "windows/dialogs/frmWelcome.h"
#include "windows/frmPlaces.h"
#include "windows/mainwindow/frmMain.h"
#include "windows/network/frmAdapters.h"
#include "windows/network/frmEndpoints.h"
#include "windows/operations/frmNetworkInfo.h"
#include "windows/presence/frmSetStatus.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QIcon>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <QUrl>

// Resources of a static library are not there until they are asked for, and the macro does not stand
// being in a namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(tessel);
}

namespace tessel {

namespace {

// A window that is hidden, minimised or behind others comes to the front.
void raiseWindow(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

// A window of its own would lie under a main window that stays on top.
void followOnTop(QWidget& window, Station& station) {
    const auto follow = [&window, &station] {
        const bool shown = window.isVisible();
        window.setWindowFlag(Qt::WindowStaysOnTopHint, station.settings.Settings_ONTOP());
        window.setVisible(shown);
    };
    follow();
    QObject::connect(&station.shell, &Shell::onTopChanged, &window, follow);
}

// Shows the one dialog of its kind, made anew when there is none; it lives until it is closed.
template <typename Form> void showDialog(QPointer<Form>& dialog, Station& station, WindowRegistry& registry) {
    if (!dialog) {
        dialog = new Form(station, QApplication::activeWindow());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        keepPlace(*dialog, registry);
    }
    raiseWindow(*dialog);
}

// Until there is a page for them, the texts of the quick statuses are edited in their file.
void tellOfStatusFile(Station& station) {
    auto* const box = new QMessageBox(QMessageBox::Information, kProductName,
                                      QObject::tr("This quick status has no text yet.\n"
                                                  "The texts stand in %1 and are read at the start.")
                                          .arg(station.folders.dataFile(kStatusFile)),
                                      QMessageBox::Ok, QApplication::activeWindow());
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

// Gives the program its icon once the first window is painted: what draws the picture is a library
// of its own, and the user waits for the window, not for the icon.
class IconAfterFirstPaint : public QObject {
public:
    explicit IconAfterFirstPaint(QWidget* window) : QObject(window) { window->installEventFilter(this); }

    bool eventFilter(QObject* window, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            window->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] {
                loadPictures();
                QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/tessel.svg")));
                deleteLater();
            });
        }
        return false;
    }
};

} // namespace

FormDesktop::FormDesktop(WindowRegistry& registry) : m_registry(registry) {}

FormDesktop::~FormDesktop() {
    m_popups.reset();
    delete m_notifications;
    delete m_globalDoorBell;
    delete m_setStatus;
    delete m_adapters;
    delete m_information;
    delete m_endpoints;
    delete m_welcome;
    delete m_main;
}

void FormDesktop::setStation(Station& station) {
    m_station = &station;
    m_popups = std::make_unique<PopupWindows>(station);
}

frmMain* FormDesktop::mainWindow() const {
    return m_main;
}

void FormDesktop::showWelcome() {
    m_welcome = new frmWelcome(*m_station);
    new IconAfterFirstPaint(m_welcome);
    m_welcome->show();
}

void FormDesktop::showMain() {
    if (!m_main) {
        m_main = new frmMain(*m_station, m_registry);
        new IconAfterFirstPaint(m_main);
    }
    m_main->show();
}

void FormDesktop::bringUp() {
    if (m_main) {
        raiseWindow(*m_main);
    } else if (m_welcome) {
        raiseWindow(*m_welcome);
    }
}

void FormDesktop::showWindow(WindowId window) {
    switch (window) {
    case WindowId::Endpoints:
        if (!m_endpoints) {
            m_endpoints = new frmEndpoints(*m_station);
            keepPlace(*m_endpoints, m_registry);
            followOnTop(*m_endpoints, *m_station);
        }
        raiseWindow(*m_endpoints);
        break;
    case WindowId::Adapters:
        showDialog(m_adapters, *m_station, m_registry);
        break;
    case WindowId::NetworkInfo:
        showDialog(m_information, *m_station, m_registry);
        break;
    case WindowId::SetStatus:
        showDialog(m_setStatus, *m_station, m_registry);
        break;
    case WindowId::StatusOptions:
        tellOfStatusFile(*m_station);
        break;
    case WindowId::Notifications:
        if (!m_notifications) {
            m_notifications = new frmNotifications(*m_station);
            keepPlace(*m_notifications, m_registry);
            followOnTop(*m_notifications, *m_station);
        }
        raiseWindow(*m_notifications);
        break;
    case WindowId::GlobalDoorBell:
        showDialog(m_globalDoorBell, *m_station, m_registry);
        break;
    }
}

void FormDesktop::showPopup(PopupId popup, const PopupContent& content) {
    m_popups->show(popup, content);
}

void FormDesktop::closePopup(PopupId popup) {
    m_popups->close(popup);
}

void FormDesktop::closePopups() {
    m_popups->closeAll();
}

void FormDesktop::showBalloon(const QString& title, const QString& text) {
    if (m_main) {
        m_main->showNote(title, text);
    }
}

bool FormDesktop::shakeMain(int dx, int dy) {
    return m_main && m_main->shake(QPoint(dx, dy));
}

void FormDesktop::minimiseMain() {
    if (m_main) {
        m_main->putAway();
    }
}

void FormDesktop::restoreMain() {
    if (m_main) {
        m_main->showNormal();
    }
}

void FormDesktop::ResetScreenPosition() {
    if (m_main) {
        m_main->resetPlace();
    }
}

void FormDesktop::saveMainPlace() {
    if (m_main) {
        m_main->savePlace();
    }
}

void FormDesktop::unloadForms() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window != m_main) {
            window->close();
        }
    }
}

void FormDesktop::unloadMain() {
    if (m_main) {
        m_main->close();
    }
    QApplication::quit();
}

void FormDesktop::SetAutoStart(bool on) {
    m_registry.SetAutoStart(QApplication::applicationFilePath(), on);
}

bool FormDesktop::openPath(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void FormDesktop::startProgram(const QString& path, const QStringList& arguments) {
    if (FileExists(path)) {
        QProcess::startDetached(path, arguments);
    }
}

} // namespace tessel
