#include "controls/bars/BarButtons.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>
#include <QToolTip>

#include <algorithm>

namespace tessel {

BarButtons::BarButtons(CommandSet& commands, QWidget* bar) : QObject(bar), m_commands(commands), m_bar(bar) {
    bar->setFocusPolicy(Qt::TabFocus);
    bar->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &BarButtons::focusMoved);
}

void BarButtons::adopt(QToolButton* button) {
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->installEventFilter(this);
    QAction* const action = button->defaultAction();
    if (action == nullptr) {
        return;
    }
    // Qt asks for a menu by a part of the button alone.
    const auto follow = [button, action] {
        if (action->menu() != nullptr && button->popupMode() != QToolButton::InstantPopup) {
            button->setPopupMode(QToolButton::InstantPopup);
        }
        if (const QString spoken = spokenCaption(action->text()); button->accessibleName() != spoken) {
            button->setAccessibleName(spoken);
        }
    };
    connect(action, &QAction::changed, button, follow);
    follow();
}

bool BarButtons::eventFilter(QObject* watched, QEvent* event) {
    auto* const button = qobject_cast<QToolButton*>(watched);
    switch (event->type()) {
    case QEvent::Paint:
        m_commands.wantIcons();
        return false;
    case QEvent::FocusIn:
        if (watched == m_bar) {
            enter();
        } else if (button != nullptr) {
            button->setFocusPolicy(Qt::TabFocus); // a screen reader passes over what cannot have it
        }
        return false;
    case QEvent::FocusOut:
        if (button != nullptr) {
            button->setFocusPolicy(Qt::NoFocus);
        }
        return false;
    case QEvent::KeyPress:
        return button != nullptr && pressKey(*button, *static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return button != nullptr && isSecondClick(*button);
    case QEvent::ToolTip:
        if (button != nullptr) {
            showTip(*button, static_cast<QHelpEvent*>(event)->globalPos());
        }
        return button != nullptr;
    default:
        return false;
    }
}

// --- keyboard ------------------------------------------------------------------------------------

std::vector<QToolButton*> BarButtons::reachable() const {
    std::vector<QToolButton*> all;
    for (QToolButton* const button : m_bar->findChildren<QToolButton*>()) {
        const bool scroller = qobject_cast<QTabBar*>(button->parentWidget()) != nullptr;
        if (button->isVisible() && button->isEnabled() && !scroller) {
            all.push_back(button);
        }
    }
    const bool leftToRight = m_bar->layoutDirection() == Qt::LeftToRight;
    std::ranges::stable_sort(all, {}, [&](const QToolButton* button) {
        const QRect box(button->mapTo(m_bar, QPoint()), button->size());
        return std::pair(leftToRight ? box.left() : -box.right(), box.top());
    });
    return all;
}

void BarButtons::focusMoved(QWidget* old, QWidget* now) {
    const auto mine = [this](const QWidget* widget) {
        return widget == m_bar || m_bar->isAncestorOf(widget);
    };
    if (now == nullptr || !mine(now)) {
        return;
    }
    // A menu that closes is no place to go back to.
    if (old != nullptr && !mine(old) && old->window() == m_bar->window()) {
        m_back = old;
    }
    if (auto* const button = qobject_cast<QToolButton*>(now); button != nullptr) {
        m_last = button;
    }
}

void BarButtons::enter() {
    const std::vector<QToolButton*> all = reachable();
    if (!all.empty()) {
        const bool back = std::ranges::find(all, m_last.data()) != all.end();
        (back ? m_last.data() : all.front())->setFocus(Qt::OtherFocusReason);
    }
}

bool BarButtons::goBack() {
    const bool there = m_back != nullptr && m_back->isVisible() && m_back->isEnabled();
    if (there) {
        m_back->setFocus(Qt::OtherFocusReason);
    }
    return there;
}

bool BarButtons::pressKey(QToolButton& from, const QKeyEvent& key) {
    const int right = m_bar->layoutDirection() == Qt::LeftToRight ? 1 : -1;
    if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::NoModifier) {
        return false;
    }
    switch (key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        step(from, key.key() == Qt::Key_Right ? right : -right);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        step(from, key.key() == Qt::Key_Down ? 1 : -1);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End: {
        const auto all = reachable();
        (key.key() == Qt::Key_Home ? all.front() : all.back())->setFocus(Qt::OtherFocusReason);
        return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!key.isAutoRepeat()) {
            from.click();
        }
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        leave(key.key() == Qt::Key_Tab);
        return true;
    case Qt::Key_Escape:
        return goBack();
    default:
        return false;
    }
}

void BarButtons::step(const QToolButton& from, int by) {
    const auto all = reachable();
    const auto at = std::ranges::find(all, &from) - all.begin() + by;
    if (at >= 0 && at < std::ssize(all)) {
        all[static_cast<std::size_t>(at)]->setFocus(Qt::OtherFocusReason);
    }
}

// The buttons stand nowhere in the window's order of the Tab key, so the way on begins at the bar.
void BarButtons::leave(bool forward) {
    QWidget* to = m_bar;
    do {
        to = forward ? to->nextInFocusChain() : to->previousInFocusChain();
    } while (to != m_bar && (to == m_last || (to->focusPolicy() & Qt::TabFocus) == 0 || !to->isVisible() ||
                             !to->isEnabled()));
    if (to != m_bar) {
        to->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
}

// --- mouse ---------------------------------------------------------------------------------------

bool BarButtons::isSecondClick(const QToolButton& button) {
    if (!m_commands.oncePerDoubleClick(button.defaultAction())) {
        return false;
    }
    const bool second = m_clicked == &button && m_sinceClick.isValid() &&
                        !m_sinceClick.hasExpired(QApplication::doubleClickInterval());
    m_clicked = &button;
    m_sinceClick.start();
    return second;
}

void BarButtons::showTip(const QToolButton& button, QPoint globalPos) const {
    QStringList lines;
    const QAction* const action = button.defaultAction();
    const QString caption = action != nullptr ? spokenCaption(action->text()) : QString();
    const bool iconAlone = button.toolButtonStyle() == Qt::ToolButtonIconOnly && !button.icon().isNull();
    if (action != nullptr && !caption.isEmpty() &&
        (iconAlone || spokenCaption(action->iconText()) != caption)) {
        lines.append(caption);
    }
    const QString tip = action != nullptr ? action->toolTip().trimmed() : button.toolTip();
    if (!tip.isEmpty() && tip != caption) {
        lines.append(tip);
    }
    QToolTip::showText(globalPos, plainTip(lines.join(u'\n')), &const_cast<QToolButton&>(button));
}

} // namespace tessel
