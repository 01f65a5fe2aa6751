// The foot of a window: a text, and small panes to press at its end.
#pragma once

#include "controls/bars/CommandBarsBar.h"

#include <vector>

namespace tessel {

class FooterText;

class PaneBar : public CommandBar {
    Q_OBJECT
public:
    PaneBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent = nullptr);

    // Plain texts of any origin. A text without room is cut, and its tip begins with the whole.
    void setFooter(const QString& text, const QString& tip = {});
    QString footer() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void layOut() override;
    void fillMenu(CommandButton& button, QMenu& menu) override;
    CommandButton* standIn(int) const override { return m_more; }
    void paintEvent(QPaintEvent* event) override;

private:
    FooterText* m_footer;
    std::vector<CommandButton*> m_panes;
    std::vector<CommandButton*> m_hidden; // have no room
    CommandButton* m_more;
};

} // namespace tessel
