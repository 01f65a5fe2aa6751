// A row of commands beside, over or under a view. In little room its icons stand alone, and what has
// none at all is in a menu at its end.
#pragma once

#include <QToolBar>

#include <vector>

class QToolButton;

namespace tessel {

class BarButtons;
class CommandSet;

class CommandBar : public QToolBar {
    Q_OBJECT
public:
    enum class Captions { Shown, Hidden }; // Hidden: of commands that have an icon

    // `name`: for screen readers. The set must outlive the bar.
    CommandBar(CommandSet& commands, const std::vector<int>& ids, const QString& name,
               QWidget* parent = nullptr, Captions captions = Captions::Shown);

    // Null for a command that has no button here. One without room is hidden and in the bar's menu.
    QToolButton* button(int id) const;
    // Gives the bar the keyboard, as the Tab key would. Escape gives it back.
    void takeFocus();

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void fit();

    CommandSet& m_commands;
    BarButtons* m_buttons;
    Captions m_captions;
    int m_fitted = -1; // the width that the captions were last weighed for; -1 for none
};

} // namespace tessel
