#include "frmDesktop.h"

#include "core/cWindowRegistry.h"
#include "core/mod_FileTools.h"
#include "dialogs/frmWelcome.h"
#include "mainwindow/frmMain.h"
#include "network/frmAdapters.h"
#include "network/frmEndpoints.h"
#include "operations/frmNetworkInfo.h"
#include "station.h"

#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QIcon>
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

// Shows the one dialog of its kind, made anew when there is none; it lives until it is closed.
template <typename Form> void showDialog(QPointer<Form>& dialog, Station& station) {
    if (!dialog) {
        dialog = new Form(station, QApplication::activeWindow());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    raiseWindow(*dialog);
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
    delete m_adapters;
    delete m_information;
    delete m_endpoints;
    delete m_welcome;
    delete m_main;
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
        }
        raiseWindow(*m_endpoints);
        break;
    case WindowId::Adapters:
        showDialog(m_adapters, *m_station);
        break;
    case WindowId::NetworkInfo:
        showDialog(m_information, *m_station);
        break;
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
