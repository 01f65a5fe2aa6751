// Keeps a held Return, Enter, Space, Delete, Escape or key of a quick status in the widget in which it went
// down.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <array>

class QKeyEvent;

namespace tessel {

// A key that is held repeats, and when its first press opens or closes a window the repeats arrive in
// another one as if pressed anew: what has the focus there would be pressed by nobody. While it lives,
// this drops for the whole application each press of these keys that reaches another widget than the
// one in which the key went down, until the key was released. Repeats in the same widget pass, so that a
// text box or a list works as ever, but for those few that come marked as presses of their own: these would
// switch on and off what is switched once per press. The same holds for a key with Ctrl or Alt, a shortcut
// mostly, that reaches another window. When the application becomes inactive it forgets what is held: the
// release may go to another program.
class HeldKeyFilter : public QObject {
    Q_OBJECT
public:
    // For the application that is running.
    HeldKeyFilter();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Held {
        Qt::Key key = Qt::Key_unknown;
        bool down = false;
        quint64 seenAt = ~quint64{0};    // when it was last pressed or released, in milliseconds
        quint64 decidedAt = ~quint64{0}; // the press of which it is known whether it is dropped
        bool dropped = false;
        QPointer<const QWidget> widget{}; // where it went down
    };

    Held* find(const QKeyEvent& event);
    bool dropsPress(Held& held, const QKeyEvent& event, const QWidget* target);

    std::array<Held, 14> m_held{Held{Qt::Key_Return}, Held{Qt::Key_Enter},  Held{Qt::Key_Space},
                                Held{Qt::Key_Delete}, Held{Qt::Key_Escape}, Held{Qt::Key_F1},
                                Held{Qt::Key_F2},     Held{Qt::Key_F3},     Held{Qt::Key_F4},
                                Held{Qt::Key_F5},     Held{Qt::Key_F6},     Held{Qt::Key_F7},
                                Held{Qt::Key_F8},     Held{Qt::Key_F9}};
    Held m_shortcut{}; // the latest of all others; its place is a window
};

} // namespace tessel
