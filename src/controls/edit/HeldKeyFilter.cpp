#include "controls/edit/HeldKeyFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include <algorithm>

namespace tessel {

namespace {

// A held key repeats sooner than this. A press so much later is a new one: the release was lost, as it is
// when it went to a window behind a modal one.
constexpr quint64 kLongestGapMs = 1000;

bool isModifier(int key) {
    return key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
}

// The widget that a key sent to any window of the application ends in.
QWidget* targetOfKeys() {
    if (QWidget* const popup = QApplication::activePopupWidget(); popup != nullptr) {
        return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
    }
    QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr ? focus : QApplication::activeWindow();
}

} // namespace

HeldKeyFilter::HeldKeyFilter() {
    QCoreApplication::instance()->installEventFilter(this);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state != Qt::ApplicationActive) {
            for (Held& held : m_held) {
                held = Held{held.key};
            }
        }
    });
}

bool HeldKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    // At the window alone: there each key comes by once, before it walks from widget to widget.
    const bool press = event->type() == QEvent::KeyPress;
    if ((!press && event->type() != QEvent::KeyRelease) || qobject_cast<QWindow*>(watched) == nullptr) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    auto* const held =
        std::find_if(m_held.begin(), m_held.end(), [&key](const Held& one) { return one.key == key.key(); });
    if (press && !isModifier(key.key())) {
        // Of several keys that are down the last one repeats.
        for (Held& one : m_held) {
            one.down = one.down && one.key == key.key();
        }
    }
    if (held == m_held.end()) {
        return false;
    }
    if (!press) {
        if (!key.isAutoRepeat()) {
            held->down = false;
            held->seenAt = key.timestamp();
        }
        return false;
    }
    return dropsPress(*held, key, targetOfKeys());
}

bool HeldKeyFilter::dropsPress(Held& held, const QKeyEvent& event, const QWidget* target) {
    // X tells a repeat as a release and a press of the same moment. Between two windows, or when the press
    // comes after Qt has looked for it, only the moment tells that nobody let go.
    const bool sameMoment = held.seenAt == event.timestamp();
    const bool neverUp = sameMoment || (held.down && event.timestamp() - held.seenAt < kLongestGapMs);
    held.seenAt = event.timestamp();
    held.down = true;
    if (!neverUp && !event.isAutoRepeat()) {
        held.widget = target;
        return false;
    }
    // Where it went down may be gone, and no window have the keyboard: those two are not the same place.
    return held.widget.isNull() || held.widget != target || (sameMoment && !event.isAutoRepeat());
}

} // namespace tessel
