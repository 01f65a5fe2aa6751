// A quiet ribbon: one row of tabs behind the menu of the program, and under it one row of groups of
// buttons that take less room as the window narrows.
//
// It shows the commands of a CommandSet and has no signal for them: whoever listens to the set hears
// every press, of a tab too.
#pragma once

#include <QWidget>

#include <map>
#include <vector>

class QAction;
class QHBoxLayout;
class QMenu;
class QTabBar;
class QToolButton;

namespace tessel {

class BarButtons;
class CommandSet;
class RibbonGroupBox;

struct RibbonButton {
    int id = 0;
    bool large = false;
};

struct RibbonGroup {
    QString caption;
    std::vector<RibbonButton> buttons;
};

inline constexpr int kAllTabs = 0;

struct RibbonPlan {
    QString systemCaption; // with its mnemonic
    std::vector<int> systemIds;
    std::vector<int> tabs;
    std::map<int, std::vector<RibbonGroup>> groups; // by tab, those of kAllTabs stand first
};

class Ribbon : public QWidget {
    Q_OBJECT
public:
    Ribbon(CommandSet& commands, const RibbonPlan& plan, QWidget* parent = nullptr);

    int currentTab() const;
    // Shows the tab's page; nothing is triggered.
    void setCurrentTab(int id);

    // Shows the tabs alone, as Ctrl+Shift+R and a double click on the current tab do. The commands are in the
    // menu at the end of the tabs then.
    bool isMinimised() const { return m_rows == Rows::None ? !m_unfolded : m_minimised; }
    void setMinimised(bool minimised);

    // How many rows of buttons the window has room for. With none the tabs stand alone until the user asks
    // for the commands, and what the user chose before is back when there is room again.
    enum class Rows { None, One, Three };
    void setRows(Rows rows);

    // Null for a command that has no button here. One without room is hidden and in the menu at the end.
    QToolButton* button(int id) const;
    // Gives the tabs the keyboard; the arrow down leads on to the buttons, Escape back.
    void takeFocus();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QToolButton* createMenuButton(const QString& caption);
    void createTabs(const std::vector<int>& ids);
    void createGroups(const RibbonPlan& plan);
    void layOut();
    void stepTab(int step);
    void fillMore();
    void applyFold();
    // Gives each group the widest form with which all are in the room, the first ones first.
    void fit();
    void fitTabs();
    void placeMore();
    void queueFit();

    CommandSet& m_commands;
    BarButtons* m_buttons;
    QToolButton* m_system;
    QHBoxLayout* m_tabRow = nullptr;
    QTabBar* m_tabs;
    QToolButton* m_more; // what has no room
    QToolButton* m_fold;
    QWidget* m_page;
    std::vector<RibbonGroupBox*> m_groups;
    bool m_minimised = false;
    bool m_unfolded = false; // asked for where there is no room
    Rows m_rows = Rows::Three;
    bool m_due = false;
    bool m_pressedCurrent = false; // when the mouse was last pressed on a tab
};

} // namespace tessel
