#include "controls/bars/CommandBarsBar.h"

#include "controls/bars/CommandBars.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>

#include <algorithm>
#include <limits>

namespace tessel {

namespace {

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    return className == QLatin1String(CommandBar::staticMetaObject.className())
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ToolBar)
               : nullptr;
}

// How far apart two spans are; negative where they overlap.
int apart(int from, int to, int otherFrom, int otherTo) {
    return std::max(otherFrom - to, from - otherTo);
}

} // namespace

CommandBar::CommandBar(CommandSet& commands, QWidget* parent) : QWidget(parent), m_commands(commands) {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
    setFocusPolicy(Qt::TabFocus);
    connect(qApp, &QApplication::focusChanged, this, &CommandBar::focusMoved);
}

// The keyboard leaves the buttons as they go, when the bar is no bar any more.
CommandBar::~CommandBar() {
    disconnect(qApp, nullptr, this, nullptr);
}

// A command may stand on several pages of the bar.
CommandButton* CommandBar::button(int id) const {
    CommandButton* found = nullptr;
    for (const Placed& placed : m_buttons) {
        if (id != 0 && placed.button->id() == id && (found == nullptr || placed.button->isVisibleTo(this))) {
            found = placed.button;
        }
    }
    return found;
}

CommandButton* CommandBar::addButton(int id, int row, QWidget* parent) {
    if (m_commands.find(id) == nullptr) {
        return nullptr;
    }
    auto* const made = new CommandButton(m_commands, id, parent);
    adopt(made, row);
    return made;
}

void CommandBar::adopt(CommandButton* button, int row) {
    m_buttons.push_back({button, row});
    button->installEventFilter(this);
    connect(button, &CommandButton::reshaped, this, &CommandBar::queueLayOut);
}

CommandButton* CommandBar::addMenuButton(const QString& caption, CommandButton::Glyph glyph, int row,
                                         QWidget* parent) {
    auto* const action = new QAction(caption, this);
    auto* const made = new CommandButton(action, glyph, true, parent);
    adopt(made, row);
    connect(action, &QAction::triggered, this, [this, made] {
        auto* const menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        fillMenu(*made, *menu);
        openMenuAt(*made, *menu);
    });
    return made;
}

// --- room ----------------------------------------------------------------------------------------

// Several changes at once, as at a switch of views, make one new layout.
void CommandBar::queueLayOut() {
    if (!m_queued && !m_layingOut) {
        m_queued = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_queued) {
                    layOutNow();
                }
            },
            Qt::QueuedConnection);
    }
}

void CommandBar::layOutNow() {
    m_queued = false;
    m_layingOut = true;
    layOut();
    m_layingOut = false;
    if (hasFocus()) {
        enter();
    }
}

void CommandBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutNow();
}

void CommandBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    layOutNow();
}

void CommandBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
        m_commands.renewIcons();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        updateGeometry();
        queueLayOut();
        break;
    default:
        break;
    }
}

bool CommandBar::event(QEvent* event) {
    const bool known = QWidget::event(event);
    if (event->type() == QEvent::Paint) {
        m_commands.wantIcons();
    }
    return known;
}

// --- menus ---------------------------------------------------------------------------------------

void CommandBar::openMenu(int id, QMenu& menu) {
    CommandButton* at = button(id);
    if (at == nullptr || !at->isVisible()) {
        at = standIn(id);
    }
    if (at != nullptr) {
        openMenuAt(*at, menu);
    } else {
        menu.popup(mapToGlobal(rect().bottomLeft()));
    }
}

// Away from the edge of the window that the bar is at, so that the menu does not cover the button.
void CommandBar::openMenuAt(CommandButton& button, QMenu& menu) {
    const QRect at(button.mapToGlobal(QPoint()), button.size());
    const QSize size = menu.sizeHint();
    const QRect free = button.screen()->availableGeometry();
    const bool low = button.mapTo(window(), button.rect().center()).y() > window()->height() / 2;
    const bool fitsAbove = at.top() - size.height() >= free.top();
    const bool fitsBelow = at.bottom() + size.height() <= free.bottom();
    const bool above = fitsAbove && (low || !fitsBelow);
    const int x = layoutDirection() == Qt::LeftToRight ? at.left() : at.right() - size.width() + 1;
    menu.popup({x, above ? at.top() - size.height() : at.bottom() + 1});
    if ((button.hasFocus() || m_keyed) && menu.activeAction() == nullptr) {
        const QList<QAction*> actions = menu.actions();
        const auto first = std::ranges::find_if(actions, [](const QAction* action) {
            return action->isVisible() && action->isEnabled() && !action->isSeparator();
        });
        menu.setActiveAction(first != actions.end() ? *first : nullptr);
    }
}

// --- keyboard ------------------------------------------------------------------------------------

bool CommandBar::canFocus(const CommandButton* button) const {
    return button != nullptr && button->isVisibleTo(this) && button->isEnabled();
}

CommandButton* CommandBar::firstStop() const {
    const auto found =
        std::ranges::find_if(m_buttons, [this](const Placed& placed) { return canFocus(placed.button); });
    return found != m_buttons.end() ? found->button : nullptr;
}

void CommandBar::focusMoved(QWidget* old, QWidget* now) {
    const auto mine = [this](const QWidget* widget) { return widget == this || isAncestorOf(widget); };
    if (now == nullptr || !mine(now)) {
        return;
    }
    // A menu that closes is no place to go back to.
    if (old != nullptr && !mine(old) && old->window() == window()) {
        m_back = old;
    }
    if (auto* const at = qobject_cast<CommandButton*>(now); at != nullptr) {
        m_last = at;
    }
}

void CommandBar::enter() {
    CommandButton* const to = canFocus(m_last) ? m_last.data() : firstStop();
    if (to != nullptr) {
        to->setFocus(Qt::OtherFocusReason);
    }
}

void CommandBar::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (!m_passing && !m_layingOut) {
        enter();
    }
}

// Asked by a button that the keyboard leaves. Buttons made late stand last in the window's order of
// the Tab key, so the way on is looked for from the bar.
bool CommandBar::focusNextPrevChild(bool next) {
    const bool gone = !hasFocus() && !canFocus(qobject_cast<CommandButton*>(QApplication::focusWidget()));
    m_passing = true;
    setFocus(Qt::OtherFocusReason);
    m_passing = false;
    if (gone && m_layingOut) {
        return true;
    }
    if (gone && firstStop() != nullptr) {
        enter();
        return true;
    }
    const bool moved = QWidget::focusNextPrevChild(next);
    if (hasFocus()) {
        enter();
    }
    return moved;
}

bool CommandBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* const from = qobject_cast<CommandButton*>(watched);
        const auto* const key = static_cast<QKeyEvent*>(event);
        const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
        if (from != nullptr && modifiers == Qt::NoModifier && keyOnButton(*from, key->key())) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool CommandBar::keyOnButton(CommandButton& from, int key) {
    switch (key) {
    case Qt::Key_Escape:
        if (m_back == nullptr || !m_back->isVisible() || !m_back->isEnabled()) {
            return false;
        }
        from.setDown(false);
        m_back->setFocus(Qt::OtherFocusReason);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        if (CommandButton* const to = beside(from, key); to != nullptr) {
            from.setDown(false);
            to->setFocus(Qt::OtherFocusReason);
        }
        return true;
    default:
        return false;
    }
}

// Column by column to the sides, then up and down within the column: every button can be reached.
CommandButton* CommandBar::beside(const CommandButton& from, int key) const {
    const auto boxOf = [this](const CommandButton& button) {
        return QRect(button.mapTo(this, QPoint()), button.size());
    };
    const QRect at = boxOf(from);
    const int row = std::ranges::find(m_buttons, &from, &Placed::button)->row;
    const bool sideways = key != Qt::Key_Up && key != Qt::Key_Down;
    CommandButton* best = nullptr;
    std::pair least(std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
    for (const Placed& placed : m_buttons) {
        if (placed.button == &from || !canFocus(placed.button) || (sideways && placed.row != row)) {
            continue;
        }
        const QRect box = boxOf(*placed.button);
        const int level = std::abs(box.center().y() - at.center().y());
        std::pair cost(0, 0);
        switch (key) {
        case Qt::Key_Right:
            cost = {box.left() - at.right(), level};
            break;
        case Qt::Key_Left:
            cost = {at.left() - box.right(), level};
            break;
        case Qt::Key_Down:
        case Qt::Key_Up:
            cost = {key == Qt::Key_Down ? box.top() - at.bottom() : at.top() - box.bottom(),
                    std::max(0, apart(at.left(), at.right(), box.left(), box.right()))};
            break;
        case Qt::Key_Home:
            cost = {box.left() + 1, box.top()};
            break;
        default:
            cost = {width() - box.right(), box.top()};
            break;
        }
        if (cost.first > 0 && cost < least) {
            least = cost;
            best = placed.button;
        }
    }
    return best;
}

} // namespace tessel
