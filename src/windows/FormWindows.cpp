#include "windows/FormWindows.h"

#include "engine/station.h"
#include "windows/WindowPlaces.h"
#include "windows/WindowTable.h"
#include "windows/clsOnTop.h"
#include "windows/mainwindow/frmMain.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QIcon>
#include <QTimer>

// Resources of a static library are not there until they are asked for, and the macro does not stand
// being in a namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(tessel);
}

namespace tessel {

namespace {

// The window that a dialog belongs to: a dialog that holds others, or else what those belong to, so
// that it does not go with a dialog that it was only opened from. nullptr while another program has
// the user.
QWidget* ownerOfDialog() {
    QWidget* owner = QApplication::activeWindow();
    while (owner != nullptr && owner->parentWidget() != nullptr && !owner->isModal()) {
        owner = owner->parentWidget()->window();
    }
    return owner;
}

// The second click of two on what opens a dialog lands in the window behind it, and some desktops then
// leave the keyboard there, where nothing takes it: a name would be typed into nowhere.
void keepKeyboard(QWidget& dialog) {
    QTimer::singleShot(QApplication::doubleClickInterval(), &dialog, [&dialog] {
        if (dialog.isVisible() && QApplication::activeWindow() == dialog.parentWidget()) {
            dialog.activateWindow();
        }
    });
}

// What was opened from a dialog that holds others, a message that came meanwhile, say, stays when that goes.
void leaveChildren(QDialog& dialog) {
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&dialog] {
        for (QDialog* const child : dialog.findChildren<QDialog*>(Qt::FindDirectChildrenOnly)) {
            if (child->isVisible() && !child->isModal()) {
                const QRect place = child->geometry();
                child->setParent(dialog.parentWidget(), child->windowFlags());
                child->setGeometry(place);
                putInFront(*child);
            }
        }
    });
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

FormWindows::FormWindows(WindowRegistry& registry) : m_registry(registry) {}

FormWindows::~FormWindows() {
    // Dialogs belong to other windows, so a pointer may be empty by its turn; the main one goes last.
    for (const auto& [id, window] : m_windows) {
        if (id != WindowId::Main) {
            delete window;
        }
    }
    delete mainWindow();
}

void FormWindows::setStation(Station& station) {
    m_station = &station;
    QObject::connect(&station.shell, &Shell::onTopChanged, &station, [this] { Set_onTop(); });
}

QWidget* FormWindows::window(WindowId window) const {
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : found->second.data();
}

frmMain* FormWindows::mainWindow() const {
    return static_cast<frmMain*>(window(WindowId::Main));
}

void FormWindows::show(const WindowRequest& request) {
    const WindowRow& row = windowRow(request.window);
    QPointer<QWidget>& shown = m_windows[request.window];
    if (!shown) {
        shown = make(row, request.modal);
    } else if (request.modal && !shown->isModal()) {
        holdMain(*shown);
    }
    if (auto* const form = dynamic_cast<RequestedWindow*>(shown.data())) {
        form->take(request);
    }
    if (row.life == Life::Face) {
        shown->show(); // at the start of a session nobody wants it in front of another program
    } else {
        putInFront(*shown);
        if (shown->isModal()) {
            keepKeyboard(*shown);
        }
    }
}

QWidget* FormWindows::make(const WindowRow& row, bool modal) {
    const bool dialog = row.life == Life::Dialog || row.life == Life::Modal;
    QWidget* const owner = !dialog ? nullptr : modal ? mainWindow() : ownerOfDialog();
    QWidget* const made = row.make({*m_station, m_registry, owner});
    made->setObjectName(QLatin1String(row.form));
    if (dialog) {
        made->setAttribute(Qt::WA_DeleteOnClose);
    }
    // Without an owner it would hold every window, the popups of alerts among them.
    if (owner != nullptr && (modal || row.life == Life::Modal)) {
        made->setWindowModality(Qt::WindowModal);
    }
    if (auto* const holder = qobject_cast<QDialog*>(made)) {
        leaveChildren(*holder);
    }
    if (row.life == Life::Face) {
        new IconAfterFirstPaint(made);
    } else {
        keepPlace(*made, m_registry, m_station->settings.Advanced_MultipleMonitors());
    }
    tessel::Set_onTop(*made, m_station->settings.Settings_ONTOP());
    return made;
}

void FormWindows::holdMain(QWidget& dialog) {
    QWidget* const main = mainWindow();
    if (main != nullptr && &dialog != main) {
        dialog.setParent(main, dialog.windowFlags());
        dialog.setWindowModality(Qt::WindowModal);
    }
}

void FormWindows::Set_onTop() {
    for (const auto& [id, window] : m_windows) {
        if (window) {
            tessel::Set_onTop(*window, m_station->settings.Settings_ONTOP());
        }
    }
}

void FormWindows::bringUp() {
    QWidget* const face = mainWindow() != nullptr ? mainWindow() : window(WindowId::Welcome);
    if (face != nullptr) {
        face->setWindowState(face->windowState() & ~(Qt::WindowMaximized | Qt::WindowFullScreen));
        putInFront(*face);
    }
}

void FormWindows::minimiseMain() {
    if (mainWindow() != nullptr) {
        mainWindow()->putAway();
    }
}

void FormWindows::restoreMain() {
    if (mainWindow() != nullptr) {
        mainWindow()->showNormal();
    }
}

void FormWindows::ResetScreenPosition() {
    if (mainWindow() != nullptr) {
        mainWindow()->resetPlace();
    }
}

void FormWindows::saveMainPlace() {
    if (mainWindow() != nullptr) {
        mainWindow()->SaveFormPosition();
    }
}

bool FormWindows::shakeMain(int dx, int dy) {
    return mainWindow() != nullptr && mainWindow()->shake(QPoint(dx, dy));
}

void FormWindows::showNote(const QString& title, const QString& text) {
    if (mainWindow() != nullptr) {
        mainWindow()->showNote(title, text);
    }
}

void FormWindows::unloadForms() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window != mainWindow()) {
            window->close();
        }
    }
}

void FormWindows::unloadMain() {
    if (mainWindow() != nullptr) {
        mainWindow()->close();
    }
    QApplication::quit();
}

} // namespace tessel
