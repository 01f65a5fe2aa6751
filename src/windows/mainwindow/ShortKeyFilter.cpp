#include "windows/mainwindow/ShortKeyFilter.h"

#include "engine/operations/mod_ShortKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace tessel {

namespace {

constexpr int kF1 = 112; // as the engine numbers the keys

bool isQuickKey(const QKeyEvent& event) {
    return event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F9 && event.modifiers() == Qt::NoModifier;
}

} // namespace

void ShortKeyFilter::watchSearch(QLineEdit& box) {
    m_search = &box;
    box.installEventFilter(this);
}

bool ShortKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (isQuickKey(key)) {
        // A key that is held would switch the status on and off.
        if (event->type() == QEvent::KeyPress && !key.isAutoRepeat()) {
            m_keys.Process_ShortKeys(kF1 + key.key() - Qt::Key_F1);
        }
        event->accept();
        return true;
    }
    if (watched == m_search && event->type() == QEvent::KeyPress && key.modifiers() == Qt::ControlModifier &&
        key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z) {
        m_keys.Process_Keys(key.key() - Qt::Key_A + 1);
    }
    return false;
}

} // namespace tessel
