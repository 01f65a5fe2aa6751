#include "controls/bars/Ribbon.h"

#include "controls/bars/CommandBars.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QShortcutEvent>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

enum Row { kTabRow, kGroupRow };

constexpr int kSideGap = 4;

} // namespace

Ribbon::Ribbon(CommandSet& commands, RibbonPlan plan, QWidget* parent)
    : CommandBar(commands, parent), m_plan(std::move(plan)), m_tabRow(new RibbonTabRow(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Commands"));
    createTabs();
    createKeys();
}

void Ribbon::createTabs() {
    m_tabRow->setAccessibleName(tr("Views"));
    m_system = addMenuButton(m_plan.systemCaption, CommandButton::Glyph::None, kTabRow, this);
    m_system->setForm(CommandButton::Form::Tab);
    for (const int id : m_plan.tabs) {
        CommandButton* const tab = addButton(id, kTabRow, m_tabRow);
        if (tab == nullptr) {
            continue;
        }
        tab->setForm(CommandButton::Form::Tab);
        connect(tab, &CommandButton::chosen, this, [this, id] { setCurrentTab(id); });
        connect(tab, &CommandButton::doubleClicked, this, &Ribbon::toggleMinimised);
        m_tabs.push_back(tab);
    }
    m_tabMenu = addMenuButton(tr("More"), CommandButton::Glyph::More, kTabRow, this);
    m_tabMenu->setForm(CommandButton::Form::Icon);

    auto* const fold = new QAction(this);
    fold->setShortcut(Qt::CTRL | Qt::Key_F1);
    addAction(fold);
    connect(fold, &QAction::triggered, this, &Ribbon::toggleMinimised);
    m_fold = new CommandButton(fold, CommandButton::Glyph::Up, false, this);
    m_fold->setForm(CommandButton::Form::Icon);
    adopt(m_fold, kTabRow);

    m_groupMenu = addMenuButton(tr("More commands"), CommandButton::Glyph::More, kGroupRow, this);
    m_groupMenu->setForm(CommandButton::Form::Icon);
    setMinimised(false);
    if (!m_tabs.empty()) {
        setCurrentTab(m_tabs.front()->id());
    }
}

void Ribbon::createKeys() {
    m_previousTab = new QShortcut(Qt::CTRL | Qt::Key_PageUp, this, this, [this] { stepTab(-1); });
    m_nextTab = new QShortcut(Qt::CTRL | Qt::Key_PageDown, this, this, [this] { stepTab(1); });
}

void Ribbon::setTabKeys(const QKeySequence& previous, const QKeySequence& next) {
    m_previousTab->setKey(previous);
    m_nextTab->setKey(next);
}

void Ribbon::setCurrentTab(int id) {
    m_current = id;
    for (CommandButton* const tab : m_tabs) {
        tab->setCurrent(tab->id() == id);
    }
    if (isVisible()) {
        layOutNow();
        update();
    }
}

void Ribbon::stepTab(int step) {
    std::vector<CommandButton*> open;
    std::ranges::copy_if(m_tabs, std::back_inserter(open),
                         [](const CommandButton* tab) { return tab->isWanted() && tab->isEnabled(); });
    if (open.empty()) {
        return;
    }
    const auto at = std::ranges::find(open, m_current, &CommandButton::id);
    const auto count = std::ssize(open);
    const auto from = at != open.end() ? at - open.begin() : step > 0 ? count - 1 : 0;
    open[static_cast<std::size_t>((from + step + count) % count)]->click();
}

void Ribbon::setMinimised(bool minimised) {
    m_minimised = minimised;
    m_fold->setGlyph(minimised ? CommandButton::Glyph::Down : CommandButton::Glyph::Up);
    m_fold->action()->setText(minimised ? tr("Show the commands") : tr("Show the tabs alone"));
    updateGeometry();
    if (isVisible()) {
        layOutNow();
        update();
    }
}

void Ribbon::toggleMinimised() {
    if (hasGroups()) {
        setMinimised(!m_minimised);
        emit minimisedChanged(m_minimised);
    }
}

// --- groups --------------------------------------------------------------------------------------

const Ribbon::Groups& Ribbon::groupsOf(int tab) {
    const auto made = m_groups.find(tab);
    if (made != m_groups.end()) {
        return made->second;
    }
    Groups& groups = m_groups[tab];
    const auto plan = m_plan.groups.find(tab);
    if (plan == m_plan.groups.end()) {
        return groups;
    }
    for (const RibbonGroup& group : plan->second) {
        auto* const box = new RibbonGroupBox(group.caption, this);
        for (const RibbonButton& planned : group.buttons) {
            if (CommandButton* const button = addButton(planned.id, kGroupRow, box); button != nullptr) {
                box->add(button, planned.large);
            }
        }
        groups.push_back(box);
    }
    return groups;
}

Ribbon::Groups Ribbon::shownGroups() {
    Groups shown;
    std::ranges::copy_if(groupsOf(kAllTabs), std::back_inserter(shown), &RibbonGroupBox::isWanted);
    if (m_current != kAllTabs) {
        std::ranges::copy_if(groupsOf(m_current), std::back_inserter(shown), &RibbonGroupBox::isWanted);
    }
    return shown;
}

bool Ribbon::hasGroups() const {
    return !m_plan.groups.empty();
}

bool Ribbon::hasCaptions() const {
    return std::ranges::any_of(m_plan.groups, [](const auto& page) {
        return std::ranges::any_of(page.second,
                                   [](const RibbonGroup& group) { return !group.caption.isEmpty(); });
    });
}

// --- room ----------------------------------------------------------------------------------------

int Ribbon::tabHeight() const {
    return m_system->sizeOf(CommandButton::Form::Tab).height();
}

int Ribbon::panelHeight() const {
    if (m_minimised || !hasGroups()) {
        return 0;
    }
    const QFontMetrics captions(RibbonGroupBox::captionFont(font()));
    return RibbonGroupBox::heightIn(fontMetrics(), captions, hasCaptions()) + 2; // two lines
}

QSize Ribbon::sizeHint() const {
    return {600, tabHeight() + std::max(1, panelHeight())};
}

QSize Ribbon::minimumSizeHint() const {
    const int icon = m_fold->sizeHint().width();
    return {m_system->sizeHint().width() + 4 * icon, sizeHint().height()};
}

void Ribbon::place(QWidget& widget, const QRect& box) const {
    widget.setGeometry(QStyle::visualRect(layoutDirection(), rect(), box));
    widget.show();
}

void Ribbon::layOut() {
    layOutTabs();
    layOutGroups();
    renewMnemonics();
}

// The current tab always has room; of the others those in front.
void Ribbon::layOutTabs() {
    const int height = tabHeight();
    const int icon = m_fold->sizeHint().width();
    place(*m_system, {0, 0, m_system->sizeHint().width(), height});
    const int left = m_system->sizeHint().width();
    int room = width() - left - (hasGroups() ? icon : 0);

    int all = 0;
    int reserved = 0;
    for (const CommandButton* tab : m_tabs) {
        if (tab->isWanted()) {
            all += tab->sizeHint().width();
            reserved += tab->isCurrent() ? tab->sizeHint().width() : 0;
        }
    }
    const bool menu = all > room || (m_minimised && hasGroups());
    room -= menu ? icon : 0;
    m_hiddenTabs.clear();
    std::vector<std::pair<CommandButton*, int>> shown;
    int x = 0;
    bool full = false;
    for (CommandButton* const tab : m_tabs) {
        const int wanted = tab->sizeHint().width();
        if (!tab->isWanted()) {
            tab->hide();
        } else if (tab->isCurrent()) {
            shown.emplace_back(tab, std::min(wanted, room - x));
            x += shown.back().second;
            reserved = 0;
        } else if (!full && x + wanted + reserved <= room) {
            shown.emplace_back(tab, wanted);
            x += wanted;
        } else {
            full = true;
            m_hiddenTabs.push_back(tab);
        }
    }
    const QRect row(0, 0, std::max(0, x), height);
    place(*m_tabRow, row.translated(left, 0));
    int at = 0;
    for (const auto& [tab, width] : shown) {
        tab->setGeometry(QStyle::visualRect(layoutDirection(), row, {at, 0, width, height}));
        tab->show();
        at += width;
    }
    for (CommandButton* const tab : m_hiddenTabs) {
        tab->hide();
    }
    if (menu) {
        place(*m_tabMenu, {left + x, 0, icon, height});
    }
    m_tabMenu->setVisible(menu);
    if (hasGroups()) {
        place(*m_fold, {width() - icon, 0, icon, height});
    }
    m_fold->setVisible(hasGroups());
}

void Ribbon::layOutGroups() {
    const Groups shown = shownGroups();
    std::vector<GroupForm> forms(shown.size(), GroupForm::Hidden);
    const int moreWidth = m_groupMenu->sizeHint().width() + kSideGap;
    std::vector<GroupWidths> widths;
    if (!m_minimised) {
        std::ranges::transform(shown, std::back_inserter(widths), &RibbonGroupBox::widths);
        forms = fitGroups(widths, width(), moreWidth);
    }
    for (const auto& [tab, groups] : m_groups) {
        for (RibbonGroupBox* const box : groups) {
            const auto at = std::ranges::find(shown, box);
            box->setVisible(at != shown.end() &&
                            forms[static_cast<std::size_t>(at - shown.begin())] != GroupForm::Hidden);
        }
    }
    m_hiddenGroups.clear();
    const int top = tabHeight() + 1;
    const int height = panelHeight() - 2;
    int x = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (forms[i] == GroupForm::Hidden) {
            m_hiddenGroups.push_back(shown[i]);
            continue;
        }
        const int width = widths[i][static_cast<std::size_t>(forms[i])];
        place(*shown[i], {x, top, width, height});
        shown[i]->arrange(forms[i], hasCaptions());
        x += width;
    }
    const bool more = !m_hiddenGroups.empty() && !m_minimised;
    if (more) {
        place(*m_groupMenu, {x + kSideGap, top + kSideGap, moreWidth - kSideGap, height - 2 * kSideGap});
    }
    m_groupMenu->setVisible(more);
}

// --- menus ---------------------------------------------------------------------------------------

void Ribbon::fillMenu(CommandButton& button, QMenu& menu) {
    if (&button == m_system) {
        for (const int id : m_plan.systemIds) {
            if (QAction* const action = commands().find(id); action != nullptr) {
                menu.addAction(action);
            } else if (id == kMenuSeparator) {
                menu.addSeparator();
            }
        }
        return;
    }
    if (&button == m_tabMenu) {
        for (CommandButton* const tab : m_hiddenTabs) {
            QAction* const entry = menu.addAction(tab->action()->text(), tab, &CommandButton::click);
            entry->setEnabled(tab->isEnabled());
        }
        if (!m_minimised) {
            return;
        }
    }
    for (const RibbonGroupBox* box : m_hiddenGroups) {
        if (box->caption().isEmpty()) {
            menu.addSeparator();
        } else {
            addMenuHeading(menu, box->caption());
        }
        for (const CommandButton* command : box->wanted()) {
            menu.addAction(command->action());
        }
    }
}

CommandButton* Ribbon::standIn(int id) const {
    if (std::ranges::find(m_plan.systemIds, id) != m_plan.systemIds.end()) {
        return m_system;
    }
    const bool tab = std::ranges::find(m_plan.tabs, id) != m_plan.tabs.end();
    return tab || m_minimised ? m_tabMenu : m_groupMenu->isVisible() ? m_groupMenu : nullptr;
}

// --- keyboard ------------------------------------------------------------------------------------

CommandButton* Ribbon::firstStop() const {
    const auto current = std::ranges::find_if(m_tabs, &CommandButton::isCurrent);
    return current != m_tabs.end() && canFocus(*current) ? *current : CommandBar::firstStop();
}

// The buttons' own shortcuts would sleep while they have no room.
void Ribbon::renewMnemonics() {
    std::map<int, QKeySequence> wanted; // by command; 0 is the system menu
    const QKeySequence system = QKeySequence::mnemonic(m_system->action()->text());
    wanted[0] = system.isEmpty() ? QKeySequence(Qt::ALT | Qt::Key_F) : system;
    for (const CommandButton* tab : m_tabs) {
        wanted[tab->id()] = QKeySequence::mnemonic(tab->action()->text());
    }
    for (const RibbonGroupBox* box : shownGroups()) {
        for (const CommandButton* command : box->wanted()) {
            wanted[command->id()] = QKeySequence::mnemonic(command->action()->text());
        }
    }
    if (wanted == m_wantedMnemonics) {
        return;
    }
    m_wantedMnemonics = wanted;
    for (const auto& [shortcut, id] : m_mnemonics) {
        releaseShortcut(shortcut);
    }
    m_mnemonics.clear();
    for (const auto& [id, key] : wanted) {
        if (!key.isEmpty()) {
            m_mnemonics[grabShortcut(key)] = id;
        }
    }
}

bool Ribbon::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        const auto* const shortcut = static_cast<QShortcutEvent*>(event);
        if (const auto found = m_mnemonics.find(shortcut->shortcutId()); found != m_mnemonics.end()) {
            pressMnemonic(found->second, shortcut->isAmbiguous());
            return true;
        }
    }
    return CommandBar::event(event);
}

// Where two commands share a letter the keyboard goes from one to the other, and neither is pressed.
void Ribbon::pressMnemonic(int id, bool ambiguous) {
    CommandButton* const target = id == 0 ? m_system : button(id);
    if (target == nullptr || !target->isWanted() || !target->isEnabled()) {
        return;
    }
    if (ambiguous) {
        CommandButton* const reached = canFocus(target) ? target : standIn(id);
        if (canFocus(reached)) {
            reached->setFocus(Qt::ShortcutFocusReason);
        }
        return;
    }
    const KeyboardUse keyed(*this);
    target->click();
}

void Ribbon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor border = palette().color(QPalette::Mid);
    const int top = tabHeight();
    if (panelHeight() > 0) {
        painter.fillRect(QRect(0, top, width(), height() - top), palette().color(QPalette::Button));
    }
    painter.fillRect(QRect(0, height() - 1, width(), 1), border);
    // The current tab is open to the page under it.
    painter.fillRect(QRect(0, top, width(), 1), border);
    const auto current = std::ranges::find_if(m_tabs, &CommandButton::isCurrent);
    if (panelHeight() > 0 && current != m_tabs.end() && (*current)->isVisible()) {
        const QRect tab((*current)->mapTo(this, QPoint()), (*current)->size());
        painter.fillRect(QRect(tab.left() + 1, top, tab.width() - 2, 1), palette().color(QPalette::Button));
    }
}

} // namespace tessel
