#include "controls/edit/HeldKeyFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include <algorithm>
#include <utility>

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
            m_shortcut = {};
        }
    });
}

HeldKeyFilter::Held* HeldKeyFilter::find(const QKeyEvent& event) {
    const auto key = static_cast<Qt::Key>(event.key());
    auto* const held =
        std::find_if(m_held.begin(), m_held.end(), [key](const Held& one) { return one.key == key; });
    if (held != m_held.end()) {
        return held;
    }
    const bool pressed = event.type() != QEvent::KeyRelease;
    if (pressed && key != m_shortcut.key &&
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) {
        m_shortcut = Held{key};
    }
    return key == m_shortcut.key ? &m_shortcut : nullptr;
}

bool HeldKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    // At the window alone: there each key comes by once, before it walks from widget to widget. A shortcut
    // takes its key before that, but asks whether the window wants it.
    const QEvent::Type type = event->type();
    const bool press = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    if ((!press && type != QEvent::KeyRelease) || qobject_cast<QWindow*>(watched) == nullptr) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (isModifier(key.key())) {
        return false;
    }
    if (press) {
        // Of several keys that are down the last one repeats.
        for (Held& one : m_held) {
            one.down = one.down && one.key == key.key();
        }
    }
    Held* const held = find(key);
    if (held == nullptr) {
        return false;
    }
    if (!press) {
        if (!key.isAutoRepeat()) {
            held->down = false;
            held->seenAt = key.timestamp();
        }
        return false;
    }
    if (std::exchange(held->decidedAt, key.timestamp()) != key.timestamp()) {
        const QWidget* const target = targetOfKeys();
        const bool window = held == &m_shortcut && target != nullptr;
        held->dropped = dropsPress(*held, key, window ? target->window() : target);
    }
    if (held->dropped) {
        event->accept();
    }
    return held->dropped;
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
