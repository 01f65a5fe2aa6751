#include "controls/bars/CommandBar.h"

#include "controls/bars/BarButtons.h"
#include "controls/bars/CommandBars.h"

#include <QAction>
#include <QActionEvent>
#include <QToolButton>

namespace tessel {

CommandBar::CommandBar(CommandSet& commands, const std::vector<int>& ids, const QString& name,
                       QWidget* parent, Captions captions)
    : QToolBar(parent), m_commands(commands), m_buttons(new BarButtons(commands, this)),
      m_captions(captions) {
    setAccessibleName(name);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setMovable(false);
    setToolButtonStyle(captions == Captions::Shown ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    const QList<QAction*> actions = commands.actions(ids, this);
    addActions(actions);
    for (QAction* const action : actions) {
        if (auto* const button = qobject_cast<QToolButton*>(widgetForAction(action)); button != nullptr) {
            m_buttons->adopt(button);
        }
    }
    if (auto* const more = findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
        more != nullptr) {
        more->setAccessibleName(tr("More commands"));
        more->setToolTip(tr("More commands"));
        m_buttons->adopt(more);
    }
}

QToolButton* CommandBar::button(int id) const {
    return qobject_cast<QToolButton*>(widgetForAction(m_commands.find(id)));
}

// The first caption may be a long one.
QSize CommandBar::minimumSizeHint() const {
    return {2 * iconSize().width(), QToolBar::minimumSizeHint().height()};
}

void CommandBar::takeFocus() {
    setFocus(Qt::ShortcutFocusReason);
}

bool CommandBar::event(QEvent* event) {
    const bool known = QToolBar::event(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::Polish: {
        const int side = smallIconSide(fontMetrics());
        setIconSize({side, side});
        m_fitted = -1;
        break;
    }
    case QEvent::ActionChanged:
        m_fitted = -1;
        break;
    case QEvent::Resize:
    case QEvent::LayoutRequest:
    case QEvent::Show:
        fit();
        break;
    default:
        break;
    }
    return known;
}

// All captions or none: which of them would be cut is nothing that a user wants to think about.
void CommandBar::fit() {
    if (m_captions == Captions::Hidden || m_fitted == width() || !isVisible()) {
        return;
    }
    m_fitted = width();
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    if (sizeHint().width() > width()) {
        setToolButtonStyle(Qt::ToolButtonIconOnly);
    }
}

} // namespace tessel
