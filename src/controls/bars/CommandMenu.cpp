#include "controls/bars/CommandMenu.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidgetAction>

namespace tessel {

namespace {

// A caption from outside must not make the menu as wide as the screen.
constexpr int kCaptionChars = 60;
constexpr int kBoxWidth = 200;

} // namespace

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
    QAction* const action = menu.addAction(plainCaption(singleLine(entry.text, kCaptionChars)));
    if (model != nullptr) {
        const auto follow = [action, model, own = action->text()] {
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
}

void CommandMenu::addTextBox(QMenu& menu, const MenuEntry& entry) {
    Q_ASSERT(m_box == nullptr);
    auto* const action = new QWidgetAction(&menu);
    auto* const line = new QWidget(&menu);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(6, 4, 6, 4);
    m_box = new QLineEdit(line);
    const QString prefix = entry.says.value_or(QString());
    m_box->setMaxLength(entry.maxLength + static_cast<int>(prefix.size()));
    connect(m_box, &QLineEdit::textEdited, m_box, [box = m_box, most = entry.maxLength, prefix] {
        const bool prefixed = box->text().startsWith(prefix, Qt::CaseInsensitive);
        const qsizetype room = most + (prefixed ? prefix.size() : 0);
        if (box->text().size() > room) {
            const int cursor = box->cursorPosition();
            box->setText(box->text().left(room));
            box->setCursorPosition(cursor);
        }
    });
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
        const bool usable = command == nullptr || (command->isEnabled() && command->isVisible());
        if (usable && !m_box->text().trimmed().isEmpty()) {
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
