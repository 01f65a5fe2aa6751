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
#include <QProcess>
#include <QUrl>

namespace tessel {

namespace {

// A window that is hidden, minimised or behind others comes to the front.
void raiseWindow(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

// A dialog that lives until it is closed.
void showDialog(QWidget* dialog) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    raiseWindow(*dialog);
}

} // namespace

FormDesktop::FormDesktop(WindowRegistry& registry) : m_registry(registry) {}

FormDesktop::~FormDesktop() {
    delete m_endpoints;
    delete m_welcome;
    delete m_main;
}

frmMain* FormDesktop::mainWindow() const {
    return m_main;
}

void FormDesktop::showWelcome() {
    m_welcome = new frmWelcome(*m_station);
    m_welcome->show();
}

void FormDesktop::showMain() {
    if (!m_main) {
        m_main = new frmMain(*m_station, m_registry);
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
        showDialog(new frmAdapters(*m_station, QApplication::activeWindow()));
        break;
    case WindowId::NetworkInfo:
        showDialog(new frmNetworkInfo(*m_station, QApplication::activeWindow()));
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
