// The foot of a window: a text, and small panes to press at its end.
#pragma once

#include <QStatusBar>

#include <vector>

class QToolButton;

namespace tessel {

class CommandBar;
class CommandSet;
class ElidedLabel;

class PaneBar : public QStatusBar {
    Q_OBJECT
public:
    PaneBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent = nullptr);

    // Plain texts of any origin. A text without room is cut, and its tip begins with the whole.
    void setFooter(const QString& text, const QString& tip = {});
    QString footer() const;
    // A mark between the footer and the panes. It becomes the bar's.
    void addMark(QWidget* mark);

    CommandBar& panes() const { return *m_panes; }
    QToolButton* button(int id) const;

private:
    ElidedLabel* m_footer;
    CommandBar* m_panes;
};

} // namespace tessel
