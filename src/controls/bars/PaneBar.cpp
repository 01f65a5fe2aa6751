#include "controls/bars/PaneBar.h"

#include "controls/bars/CommandBar.h"
#include "controls/look/ElidedLabel.h"

namespace tessel {

PaneBar::PaneBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent)
    : QStatusBar(parent), m_footer(new ElidedLabel(this)),
      m_panes(new CommandBar(commands, ids, tr("Status bar"), this, CommandBar::Captions::Hidden)) {
    setSizeGripEnabled(false);
    addWidget(m_footer, 1);
    addPermanentWidget(m_panes);
}

void PaneBar::setFooter(const QString& text, const QString& tip) {
    m_footer->setLine(text, tip);
}

void PaneBar::addMark(QWidget* mark) {
    insertPermanentWidget(1, mark);
}

QString PaneBar::footer() const {
    return m_footer->text();
}

QToolButton* PaneBar::button(int id) const {
    return m_panes->button(id);
}

} // namespace tessel
