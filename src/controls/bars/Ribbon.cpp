#include "controls/bars/Ribbon.h"

#include "controls/bars/BarButtons.h"
#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QAction>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace tessel {

namespace {

enum class GroupForm { Full, Small, Icons, Hidden };

constexpr int kLargeIcon = 32;
constexpr int kRows = 3; // small buttons over each other
constexpr int kPad = look::kTight;

// Broken at the blank nearest to the middle.
QString inTwoLines(QString caption) {
    const qsizetype middle = caption.size() / 2;
    const qsizetype before = caption.lastIndexOf(u' ', middle);
    const qsizetype behind = caption.indexOf(u' ', middle);
    const bool first = behind < 0 || (before >= 0 && middle - before <= behind - middle);
    if (const qsizetype at = first ? before : behind; at > 0) {
        caption[at] = u'\n';
    }
    return caption;
}

} // namespace

// A group of buttons over its caption. It frames nothing: a line divides it from the next one.
class RibbonGroupBox : public QGroupBox {
public:
    RibbonGroupBox(const RibbonGroup& plan, int tab, CommandSet& commands, BarButtons& buttons,
                   QWidget* parent)
        : QGroupBox(parent), m_tab(tab), m_caption(singleLine(plan.caption)),
          m_label(new QLabel(m_caption, this)), m_grid(new QGridLayout(this)) {
        setAccessibleName(m_caption);
        m_grid->setContentsMargins(kPad - 2, 0, kPad, 0);
        m_grid->setSpacing(1);
        m_label->setTextFormat(Qt::PlainText);
        m_label->setAlignment(Qt::AlignCenter);
        m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_label->setForegroundRole(QPalette::PlaceholderText);
        for (const RibbonButton& planned : plan.buttons) {
            if (QAction* const action = commands.find(planned.id); action != nullptr) {
                auto* const button = new QToolButton(this);
                button->setDefaultAction(action);
                button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
                buttons.adopt(button);
                connect(action, &QAction::changed, button, [button] { caption(*button); });
                m_members.push_back({button, planned.large});
            }
        }
    }

    int tab() const { return m_tab; }
    const QString& name() const { return m_caption; }
    GroupForm form() const { return m_form; }
    QList<QAction*> wanted() const {
        QList<QAction*> all;
        for (const Member& member : m_members) {
            if (QAction* const action = member.button->defaultAction(); action->isVisible()) {
                all.append(action);
            }
        }
        return all;
    }
    QToolButton* button(const QAction* action) const {
        const auto found = std::ranges::find_if(
            m_members, [action](const Member& member) { return member.button->defaultAction() == action; });
        return found != m_members.end() ? found->button : nullptr;
    }

    void setRows(int rows) { m_rows = rows; }
    int room() const { return m_form == GroupForm::Hidden ? 0 : sizeHint().width(); }

    void setForm(GroupForm form) {
        m_form = form;
        setVisible(form != GroupForm::Hidden);
        if (form == GroupForm::Hidden) {
            return;
        }
        const int side = smallIconSide(fontMetrics());
        int row = 0;
        int column = 0;
        for (const auto& [button, wantsLarge] : m_members) {
            m_grid->removeWidget(button);
            button->setVisible(button->defaultAction()->isVisible());
            if (!button->defaultAction()->isVisible()) {
                continue;
            }
            const bool large = wantsLarge && form == GroupForm::Full && m_rows > 1;
            button->setIconSize(large ? QSize(kLargeIcon, kLargeIcon) : QSize(side, side));
            button->setToolButtonStyle(large                      ? Qt::ToolButtonTextUnderIcon
                                       : form == GroupForm::Icons ? Qt::ToolButtonIconOnly
                                                                  : Qt::ToolButtonTextBesideIcon);
            caption(*button);
            if (row == m_rows || (large && row > 0)) {
                row = 0;
                ++column;
            }
            m_grid->addWidget(button, row, column, large ? kRows : 1, 1);
            row += large ? kRows : 1;
        }
        for (int i = 0; i < kRows; ++i) {
            m_grid->setRowStretch(i, i < m_rows ? 1 : 0);
        }
        m_grid->removeWidget(m_label);
        m_label->setVisible(m_rows > 1);
        if (m_rows == 1) {
            return;
        }
        QFont small = font();
        small.setPointSizeF(std::max(look::kLeastPoints, small.pointSizeF() * look::kSmaller));
        m_label->setFont(small);
        m_grid->addWidget(m_label, kRows, 0, 1, column + 1);
        // The first letters of a caption tell nobody anything.
        m_label->setText(m_caption);
        if (m_label->sizeHint().width() > sizeHint().width() - 2 * kPad) {
            m_label->setText(QStringLiteral(" "));
        }
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int line = layoutDirection() == Qt::LeftToRight ? width() - 1 : 0;
        painter.fillRect(QRect(line, kPad, 1, height() - 2 * kPad), palette().color(QPalette::Mid));
    }

private:
    struct Member {
        QToolButton* button = nullptr;
        bool large = false;
    };

    // The button takes its action's own caption at each change of it.
    static void caption(QToolButton& button) {
        const QString text = button.defaultAction()->iconText();
        button.setText(button.toolButtonStyle() == Qt::ToolButtonTextUnderIcon ? inTwoLines(text) : text);
    }

    int m_tab;
    QString m_caption;
    QLabel* m_label;
    QGridLayout* m_grid;
    std::vector<Member> m_members;
    GroupForm m_form = GroupForm::Hidden;
    int m_rows = kRows;
};

Ribbon::Ribbon(CommandSet& commands, const RibbonPlan& plan, QWidget* parent)
    : QWidget(parent), m_commands(commands), m_buttons(new BarButtons(commands, this)),
      m_system(createMenuButton(plan.systemCaption)), m_tabs(new QTabBar(this)), m_more(createMenuButton({})),
      m_fold(new QToolButton(this)), m_page(new QWidget(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(1); // the tabs scroll, and the groups go into their menu
    setAccessibleName(tr("Commands"));
    m_system->menu()->addActions(commands.actions(plan.systemIds, this));
    createTabs(plan.tabs);
    createGroups(plan);

    m_more->setIcon(style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton));
    m_more->setAccessibleName(tr("More commands"));
    m_more->setToolTip(tr("More commands"));
    connect(m_more->menu(), &QMenu::aboutToShow, this, &Ribbon::fillMore);
    m_buttons->adopt(m_fold);
    connect(m_fold, &QToolButton::clicked, this, [this] { setMinimised(!isMinimised()); });
    connect(new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_R, this), &QShortcut::activated, m_fold,
            &QToolButton::click);
    m_fold->setVisible(!m_groups.empty());
    layOut();
    setMinimised(false);
}

QToolButton* Ribbon::createMenuButton(const QString& caption) {
    auto* const button = new QToolButton(this);
    button->setText(caption);
    button->setAccessibleName(spokenCaption(caption));
    button->setMenu(new QMenu(button));
    button->setPopupMode(QToolButton::InstantPopup);
    m_buttons->adopt(button);
    return button;
}

void Ribbon::createTabs(const std::vector<int>& ids) {
    m_tabs->setAccessibleName(tr("Views"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setElideMode(Qt::ElideNone); // the first to go would be the counts
    m_tabs->setUsesScrollButtons(true);
    for (const int id : ids) {
        QAction* const action = m_commands.find(id);
        if (action == nullptr) {
            continue;
        }
        const int at = m_tabs->addTab(QString());
        m_tabs->setTabData(at, id);
        const auto follow = [this, at, action] {
            if (const QString text = action->text().trimmed(); m_tabs->tabText(at) != text) {
                m_tabs->setTabText(at, text);
                queueFit();
            }
            m_tabs->setTabVisible(at, action->isVisible());
            m_tabs->setTabEnabled(at, action->isEnabled());
            m_tabs->setTabToolTip(at, plainTip(action->toolTip()));
        };
        connect(action, &QAction::changed, m_tabs, follow);
        follow();
    }
    const auto press = [this](int at) {
        if (QAction* const action = m_commands.find(m_tabs->tabData(at).toInt()); action != nullptr) {
            action->trigger();
        }
    };
    connect(m_tabs, &QTabBar::currentChanged, this, [this, press](int at) {
        queueFit();
        press(at);
    });
    connect(m_tabs, &QTabBar::tabBarClicked, this, [this, press](int at) {
        m_pressedCurrent = at == m_tabs->currentIndex();
        if (m_pressedCurrent) {
            press(at);
        }
    });
    // Many click twice where once is enough, and the first click of the two makes any tab the current one.
    connect(m_tabs, &QTabBar::tabBarDoubleClicked, this, [this] {
        if (m_pressedCurrent && !m_groups.empty()) {
            setMinimised(!isMinimised());
        }
    });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this,
            [this] { stepTab(-1); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this,
            [this] { stepTab(1); });
}

void Ribbon::createGroups(const RibbonPlan& plan) {
    for (const auto& [tab, groups] : plan.groups) {
        for (const RibbonGroup& group : groups) {
            m_groups.push_back(new RibbonGroupBox(group, tab, m_commands, *m_buttons, m_page));
            for (const RibbonButton& button : group.buttons) {
                if (const QAction* const action = m_commands.find(button.id); action != nullptr) {
                    connect(action, &QAction::changed, this, &Ribbon::queueFit);
                }
            }
        }
    }
}

void Ribbon::layOut() {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 1);
    column->setSpacing(1);
    m_tabRow = new QHBoxLayout;
    m_tabRow->setSpacing(0);
    m_tabRow->addWidget(m_system);
    m_tabRow->addWidget(m_tabs, 1);
    m_tabRow->addWidget(m_fold);
    column->addLayout(m_tabRow);
    column->addWidget(m_page);
    auto* const groups = new QHBoxLayout(m_page);
    groups->setContentsMargins(0, 0, 0, 0);
    groups->setSpacing(0);
    for (RibbonGroupBox* const group : m_groups) {
        groups->addWidget(group);
    }
    groups->addStretch(1);
    m_page->setAutoFillBackground(true);
    m_page->setBackgroundRole(QPalette::Button);
}

int Ribbon::currentTab() const {
    return m_tabs->tabData(m_tabs->currentIndex()).toInt();
}

void Ribbon::setCurrentTab(int id) {
    for (int at = 0; at < m_tabs->count(); ++at) {
        if (m_tabs->tabData(at).toInt() == id) {
            const QSignalBlocker quiet(m_tabs);
            m_tabs->setCurrentIndex(at);
        }
    }
    queueFit();
}

void Ribbon::stepTab(int step) {
    const int count = m_tabs->count();
    for (int tried = 1; tried < count; ++tried) {
        const int at = (m_tabs->currentIndex() + tried * (step + count)) % count;
        if (m_tabs->isTabVisible(at) && m_tabs->isTabEnabled(at)) {
            m_tabs->setCurrentIndex(at);
            return;
        }
    }
}

void Ribbon::setMinimised(bool minimised) {
    if (m_rows == Rows::None) {
        m_unfolded = !minimised;
    } else {
        m_minimised = minimised;
    }
    applyFold();
}

void Ribbon::setRows(Rows rows) {
    if (rows == m_rows) {
        return;
    }
    m_rows = rows;
    m_unfolded = false;
    for (RibbonGroupBox* const group : m_groups) {
        group->setRows(rows == Rows::Three ? kRows : 1);
    }
    applyFold();
}

void Ribbon::applyFold() {
    const bool minimised = isMinimised();
    m_fold->setArrowType(minimised ? Qt::DownArrow : Qt::UpArrow);
    m_fold->setToolTip(minimised ? tr("Show the commands") : tr("Show the tabs alone"));
    m_fold->setAccessibleName(m_fold->toolTip());
    m_page->setVisible(!minimised && !m_groups.empty());
    fit();
    update();
}

QToolButton* Ribbon::button(int id) const {
    const QAction* const action = m_commands.find(id);
    for (const RibbonGroupBox* const group : m_groups) {
        if (QToolButton* const found = group->button(action); found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

void Ribbon::takeFocus() {
    m_tabs->setFocus(Qt::ShortcutFocusReason);
}

// --- room ----------------------------------------------------------------------------------------

void Ribbon::queueFit() {
    if (!m_due) {
        m_due = true;
        QMetaObject::invokeMethod(this, &Ribbon::fit, Qt::QueuedConnection);
    }
}

void Ribbon::fit() {
    m_due = false;
    std::vector<RibbonGroupBox*> shown;
    int height = 0;
    for (RibbonGroupBox* const group : m_groups) {
        const bool here =
            (group->tab() == kAllTabs || group->tab() == currentTab()) && !group->wanted().isEmpty();
        group->setForm(here ? GroupForm::Full : GroupForm::Hidden);
        if (here) {
            height = std::max(height, group->sizeHint().height());
            shown.push_back(group);
        }
    }
    m_page->setFixedHeight(height);
    bool hidden = false;
    const auto over = [&] {
        int room = width() - (hidden ? m_more->sizeHint().width() : 0);
        for (const RibbonGroupBox* const group : shown) {
            room -= group->room();
        }
        return room < 0;
    };
    for (const GroupForm form : {GroupForm::Small, GroupForm::Icons, GroupForm::Hidden}) {
        // The last group gives way first.
        for (auto last = shown.rbegin(); last != shown.rend() && over(); ++last) {
            RibbonGroupBox* const group = *last;
            // A single button is narrower with its icon above the caption than beside it.
            const GroupForm before = group->form();
            const int room = group->room();
            group->setForm(form);
            if (group->room() > room) {
                group->setForm(before);
            }
            hidden = hidden || group->form() == GroupForm::Hidden;
        }
    }
    placeMore();
    m_more->setVisible(hidden || (isMinimised() && !shown.empty()));
    layout()->activate();
    fitTabs();
}

// Behind the groups, where they end; beside the tabs, which need their room, only where no group is seen.
void Ribbon::placeMore() {
    if (isMinimised() && m_tabRow->indexOf(m_more) < 0) {
        m_page->layout()->removeWidget(m_more);
        m_tabRow->insertWidget(m_tabRow->indexOf(m_fold), m_more);
    } else if (!isMinimised() && m_more->parentWidget() != m_page) {
        m_tabRow->removeWidget(m_more);
        m_page->layout()->addWidget(m_more);
    }
}

// Tabs stand closer together before one of them has to scroll out of sight.
void Ribbon::fitTabs() {
    const bool tight = m_tabs->property(look::kTightTabs).toBool();
    int wanted = m_tabs->sizeHint().width();
    for (int at = 0; tight && at < m_tabs->count(); ++at) {
        wanted += m_tabs->isTabVisible(at) ? look::kTabSpace - look::kTightTabSpace : 0;
    }
    if ((wanted > m_tabs->width()) != tight) {
        m_tabs->setProperty(look::kTightTabs, !tight);
        QEvent anew(QEvent::StyleChange);
        QCoreApplication::sendEvent(m_tabs, &anew);
    }
}

void Ribbon::fillMore() {
    QMenu& menu = *m_more->menu();
    menu.clear();
    for (const RibbonGroupBox* const group : m_groups) {
        const bool here = group->tab() == kAllTabs || group->tab() == currentTab();
        if (here && (isMinimised() || group->form() == GroupForm::Hidden) && !group->wanted().isEmpty()) {
            if (!group->name().isEmpty()) {
                addMenuHeading(menu, group->name());
            }
            menu.addActions(group->wanted());
        }
    }
}

// --- events --------------------------------------------------------------------------------------

void Ribbon::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit();
}

void Ribbon::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_more->setIcon(style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton));
        queueFit();
    }
}

// The tabs leave these to the ribbon.
void Ribbon::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down) {
        m_buttons->enter();
    } else if (event->key() != Qt::Key_Escape || !m_buttons->goBack()) {
        QWidget::keyPressEvent(event);
    }
}

void Ribbon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor line = palette().color(QPalette::Mid);
    painter.fillRect(QRect(0, height() - 1, width(), 1), line);
    // The current tab is open to the page under it.
    painter.fillRect(QRect(0, m_page->y() - 1, width(), 1), line);
    const QRect tab = m_tabs->tabRect(m_tabs->currentIndex()).translated(m_tabs->pos());
    if (m_page->isVisible()) {
        painter.fillRect(QRect(tab.left() + 1, m_page->y() - 1, tab.width() - 2, 1),
                         palette().color(QPalette::Button));
    }
}

} // namespace tessel
