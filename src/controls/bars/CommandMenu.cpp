#include "controls/bars/CommandMenu.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidgetAction>

#include <utility>

namespace tessel {

namespace {

// A caption from outside must not make the menu as wide as the screen.
constexpr int kCaptionChars = 60;
constexpr int kBoxWidth = 200;

} // namespace

MenuEntry MenuEntry::command(int id, const QString& text, std::optional<QString> says) {
    MenuEntry entry;
    entry.kind = Kind::Command;
    entry.id = id;
    entry.text = text;
    entry.says = std::move(says);
    return entry;
}

MenuEntry MenuEntry::heading(const QString& text) {
    MenuEntry entry;
    entry.kind = Kind::Heading;
    entry.text = text;
    return entry;
}

MenuEntry MenuEntry::subMenu(const QString& text, std::vector<MenuEntry> entries, int icon) {
    MenuEntry entry;
    entry.kind = Kind::SubMenu;
    entry.text = text;
    entry.entries = std::move(entries);
    entry.icon = icon;
    return entry;
}

MenuEntry MenuEntry::textBox(int id, const QString& prompt, int maxLength) {
    MenuEntry entry;
    entry.kind = Kind::TextBox;
    entry.id = id;
    entry.text = prompt;
    entry.maxLength = maxLength;
    return entry;
}

CommandMenu::CommandMenu(CommandSet& commands, QWidget* parent) : QMenu(parent), m_commands(commands) {}

void CommandMenu::setEntries(const std::vector<MenuEntry>& entries) {
    // Sub-menus are children, and clear() knows actions alone.
    qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    clear();
    m_box = nullptr;
    m_boxAction = nullptr;
    m_commands.wantIcons();
    fill(*this, entries);
}

void CommandMenu::fill(QMenu& menu, const std::vector<MenuEntry>& entries) {
    for (const MenuEntry& entry : entries) {
        switch (entry.kind) {
        case MenuEntry::Kind::Command:
            addCommand(menu, entry);
            break;
        case MenuEntry::Kind::Separator:
            menu.addSeparator();
            break;
        case MenuEntry::Kind::Heading:
            addMenuHeading(menu, entry.text);
            break;
        case MenuEntry::Kind::SubMenu: {
            QMenu* const sub = menu.addMenu(plainCaption(singleLine(entry.text, kCaptionChars)));
            sub->setIcon(m_commands.picture(entry.icon));
            fill(*sub, entry.entries);
            break;
        }
        case MenuEntry::Kind::TextBox:
            addTextBox(menu, entry);
            break;
        }
    }
}

void CommandMenu::addCommand(QMenu& menu, const MenuEntry& entry) {
    QAction* const model = m_commands.find(entry.id);
    if (model == nullptr && entry.text.isEmpty()) {
        return;
    }
    auto* const action = new QAction(&menu);
    const QString own =
        entry.text.isEmpty() ? QString() : plainCaption(singleLine(entry.text, kCaptionChars));
    action->setText(own);
    if (model != nullptr) {
        const auto follow = [action, model, own] {
            action->setText(own.isEmpty() ? model->text() : own);
            action->setIcon(model->icon());
            action->setCheckable(model->isCheckable());
            action->setChecked(model->isChecked());
            action->setEnabled(model->isEnabled());
            action->setVisible(model->isVisible());
        };
        follow();
        connect(model, &QAction::changed, action, follow);
    }
    connect(action, &QAction::triggered, this, [this, action, model, id = entry.id, says = entry.says] {
        // It has toggled itself, but who hears of it decides.
        action->setChecked(model != nullptr && model->isChecked());
        choose(id, says);
    });
    menu.addAction(action);
}

void CommandMenu::addTextBox(QMenu& menu, const MenuEntry& entry) {
    Q_ASSERT(m_box == nullptr);
    auto* const action = new QWidgetAction(&menu);
    auto* const line = new QWidget(&menu);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(6, 4, 6, 4);
    m_box = new QLineEdit(line);
    m_box->setMaxLength(entry.maxLength);
    m_box->setPlaceholderText(entry.text);
    m_box->setAccessibleName(entry.text);
    m_box->setMinimumWidth(kBoxWidth);
    m_box->setContextMenuPolicy(Qt::NoContextMenu); // it would close the menu that the box is in
    m_box->installEventFilter(this);
    layout->addWidget(m_box);
    line->setFocusProxy(m_box);
    line->setFocusPolicy(Qt::StrongFocus);
    action->setDefaultWidget(line);
    menu.addAction(action);
    m_boxAction = action;
    m_boxCommand = entry.id;
}

void CommandMenu::choose(int id, const std::optional<QString>& says) {
    emit triggered(id, says ? *says : m_box != nullptr ? m_box->text() : QString());
}

// Whoever opens a menu with a box may type at once.
void CommandMenu::showEvent(QShowEvent* event) {
    QMenu::showEvent(event);
    if (m_box != nullptr) {
        setActiveAction(m_boxAction);
        m_box->setFocus(Qt::PopupFocusReason);
    }
}

bool CommandMenu::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_box && event->type() == QEvent::KeyPress &&
        keyInBox(static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return QMenu::eventFilter(watched, event);
}

bool CommandMenu::keyInBox(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QAction* const command = m_commands.find(m_boxCommand);
        if (command == nullptr || (command->isEnabled() && command->isVisible())) {
            close();
            choose(m_boxCommand, std::nullopt);
        }
        return true;
    }
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        // The menu's own walk goes on from the box.
        const bool up = key == Qt::Key_Up || key == Qt::Key_Backtab;
        setActiveAction(m_boxAction);
        QKeyEvent walk(QEvent::KeyPress, up ? Qt::Key_Up : Qt::Key_Down, Qt::NoModifier);
        QMenu::keyPressEvent(&walk);
        return true;
    }
    default:
        return false;
    }
}

} // namespace tessel
