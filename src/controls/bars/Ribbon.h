// A quiet ribbon: one row of tabs behind the menu of the program, and under it one row of groups of
// buttons that take less room as the window narrows.
//
// It shows the commands of a CommandSet and has no signal for them: whoever listens to the set hears
// every press, of a tab too.
#pragma once

#include "controls/bars/CommandBarsBar.h"
#include "controls/bars/RibbonGroups.h"

#include <map>
#include <vector>

class QShortcut;

namespace tessel {

struct RibbonButton {
    int id = 0;
    bool large = false;
};

struct RibbonGroup {
    QString caption;
    std::vector<RibbonButton> buttons;
};

inline constexpr int kMenuSeparator = 0; // among ids
inline constexpr int kAllTabs = 0;

struct RibbonPlan {
    QString systemCaption; // without a mnemonic it is reached by Alt+F
    std::vector<int> systemIds;
    std::vector<int> tabs;
    std::map<int, std::vector<RibbonGroup>> groups; // by tab, those of kAllTabs stand first
};

class Ribbon : public CommandBar {
    Q_OBJECT
public:
    Ribbon(CommandSet& commands, RibbonPlan plan, QWidget* parent = nullptr);

    int currentTab() const { return m_current; }
    // Shows the tab's page; nothing is triggered.
    void setCurrentTab(int id);
    // Ctrl+Page Up and Ctrl+Page Down otherwise.
    void setTabKeys(const QKeySequence& previous, const QKeySequence& next);

    // Shows the tabs alone. The commands are in the menu of the row of tabs then.
    bool isMinimised() const { return m_minimised; }
    void setMinimised(bool minimised);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // The user did it; the setter does not tell.
    void minimisedChanged(bool minimised);

protected:
    void layOut() override;
    void fillMenu(CommandButton& button, QMenu& menu) override;
    CommandButton* standIn(int id) const override;
    CommandButton* firstStop() const override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    using Groups = std::vector<RibbonGroupBox*>;

    void createTabs();
    void createKeys();
    const Groups& groupsOf(int tab);
    Groups shownGroups();
    bool hasGroups() const;
    bool hasCaptions() const;
    int panelHeight() const;
    int tabHeight() const;
    void layOutTabs();
    void layOutGroups();
    void place(QWidget& widget, const QRect& box) const;
    void stepTab(int step);
    void toggleMinimised();
    void renewMnemonics();
    void pressMnemonic(int id, bool ambiguous);

    RibbonPlan m_plan;
    int m_current = 0;
    bool m_minimised = false;

    RibbonTabRow* m_tabRow;
    CommandButton* m_system = nullptr;
    std::vector<CommandButton*> m_tabs;
    CommandButton* m_tabMenu = nullptr; // what has no room in the row of tabs, or under it
    CommandButton* m_fold = nullptr;
    CommandButton* m_groupMenu = nullptr;
    std::map<int, Groups> m_groups; // made when their tab is shown for the first time
    std::vector<CommandButton*> m_hiddenTabs;
    Groups m_hiddenGroups;

    QShortcut* m_previousTab = nullptr;
    QShortcut* m_nextTab = nullptr;
    std::map<int, int> m_mnemonics; // command by the number of its shortcut
    std::map<int, QKeySequence> m_wantedMnemonics;
};

} // namespace tessel
