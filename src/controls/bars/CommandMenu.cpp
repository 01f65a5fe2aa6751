#include "controls/bars/CommandMenu.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWidgetAction>

#include <algorithm>

namespace tessel {

namespace {

// A caption from outside must not make the menu as wide as the screen.
constexpr int kCaptionChars = 60;
constexpr int kBoxWidth = 200;
constexpr char kPhrase[] = "phrase"; // of an action: what it puts into a line

} // namespace

CommandMenu::CommandMenu(CommandSet& commands, QWidget* parent) : QMenu(parent), m_commands(commands) {}

void CommandMenu::setEntries(const std::vector<MenuEntry>& entries) {
    // Sub-menus are children, and clear() knows actions alone.
    qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    clear();
    m_boxes.clear();
    m_commands.wantIcons();
    fill(*this, entries);
}

void CommandMenu::fill(QMenu& menu, const std::vector<MenuEntry>& entries) {
    QActionGroup* choices = nullptr;
    for (const MenuEntry& entry : entries) {
        if (!entry.exclusive) {
            choices = nullptr;
        } else if (choices == nullptr) {
            choices = new QActionGroup(&menu);
            // Who hears of a choice decides what is checked.
            choices->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        }
        switch (entry.kind) {
        case MenuEntry::Kind::Command:
            addCommand(menu, entry, choices);
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
            sub->installEventFilter(this);
            fill(*sub, entry.entries);
            break;
        }
        case MenuEntry::Kind::TextBox:
            addTextBox(menu, entry);
            break;
        case MenuEntry::Kind::Phrase:
            addPhrase(menu, entry);
            break;
        }
    }
}

void CommandMenu::addCommand(QMenu& menu, const MenuEntry& entry, QActionGroup* choices) {
    QAction* const model = m_commands.find(entry.id);
    if (model == nullptr && entry.text.isEmpty()) {
        return;
    }
    QAction* const action = menu.addAction(plainCaption(singleLine(entry.text, kCaptionChars)));
    if (choices != nullptr) {
        choices->addAction(action);
    }
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
    QLineEdit* const line = m_boxes.empty() ? nullptr : m_boxes.back().line;
    connect(action, &QAction::triggered, this, [this, action, model, line, id = entry.id, says = entry.says] {
        // It has toggled itself, but who hears of it decides.
        action->setChecked(model != nullptr && model->isChecked());
        choose(id, says ? *says : line != nullptr ? line->text() : QString());
    });
}

void CommandMenu::addPhrase(QMenu& menu, const MenuEntry& entry) {
    Q_ASSERT(!m_boxes.empty());
    QAction* const action = menu.addAction(plainCaption(singleLine(entry.text, kCaptionChars)));
    action->setProperty(kPhrase, entry.text);
    action->setData(QVariant::fromValue(static_cast<int>(m_boxes.size()) - 1));
}

// What is put into the line, by whatever way, is mended and cut at once.
QLineEdit* CommandMenu::createLine(QMenu& menu, const MenuBox& box) {
    auto* const line = new QLineEdit(&menu);
    line->setMaxLength(box.maxLength + static_cast<int>(box.prefix.size()));
    line->setPlaceholderText(box.prompt);
    line->setAccessibleName(box.prompt);
    line->setMinimumWidth(kBoxWidth);
    line->setContextMenuPolicy(Qt::NoContextMenu); // it would close the menu that the line is in
    line->installEventFilter(this);
    connect(line, &QLineEdit::textChanged, line, [line, box](const QString& text) {
        const bool prefixed = text.startsWith(box.prefix, Qt::CaseInsensitive);
        const QString mended = box.mend ? box.mend(text) : text;
        const QString kept = mended.left(box.maxLength + (prefixed ? box.prefix.size() : 0));
        if (kept != text) {
            const qsizetype behind = text.size() - line->cursorPosition();
            line->setText(kept);
            line->setCursorPosition(static_cast<int>(std::max<qsizetype>(0, kept.size() - behind)));
        }
    });
    return line;
}

void CommandMenu::addTextBox(QMenu& menu, const MenuEntry& entry) {
    auto* const action = new QWidgetAction(&menu);
    auto* const row = new QWidget(&menu);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(6, 4, 6, 4);
    QLineEdit* const line = createLine(menu, entry.box);
    layout->addWidget(line);
    row->setFocusProxy(line);
    row->setFocusPolicy(Qt::StrongFocus);
    action->setDefaultWidget(row);
    menu.addAction(action);
    m_boxes.push_back({entry.id, line, action});
    if (entry.box.warn) {
        QAction* const remark = addMenuHeading(menu, {});
        remark->setVisible(false);
        connect(line, &QLineEdit::textChanged, remark, [line, remark, warn = entry.box.warn] {
            const QString text = warn(line->text());
            remark->setText(plainCaption(text));
            remark->setVisible(!text.isEmpty());
        });
    }
}

QLineEdit* CommandMenu::textBox(int command) const {
    const auto found = std::ranges::find(m_boxes, command, &Box::command);
    return found == m_boxes.end() ? nullptr : found->line;
}

void CommandMenu::choose(int id, const QString& text) {
    emit triggered(id, text);
}

// Whoever opens a menu with a box may type at once.
void CommandMenu::showEvent(QShowEvent* event) {
    QMenu::showEvent(event);
    if (!m_boxes.empty()) {
        setActiveAction(m_boxes.front().action);
        m_boxes.front().line->setFocus(Qt::PopupFocusReason);
    }
}

bool CommandMenu::eventFilter(QObject* watched, QEvent* event) {
    if (auto* const menu = qobject_cast<QMenu*>(watched)) {
        return takePhrase(*menu, *event);
    }
    const auto box = std::ranges::find(m_boxes, watched, &Box::line);
    if (box != m_boxes.end() && event->type() == QEvent::KeyPress) {
        return keyInBox(*box, static_cast<QKeyEvent*>(event)->key());
    }
    return QMenu::eventFilter(watched, event);
}

// An action that is triggered closes all menus, so a phrase is taken before it is.
bool CommandMenu::takePhrase(QMenu& menu, QEvent& event) {
    const QAction* chosen = nullptr;
    if (event.type() == QEvent::MouseButtonRelease) {
        chosen = menu.actionAt(static_cast<QMouseEvent&>(event).position().toPoint());
    } else if (event.type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent&>(event).key();
        const bool chooses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        chosen = chooses ? menu.activeAction() : nullptr;
    }
    if (chosen == nullptr || !chosen->property(kPhrase).isValid()) {
        return false;
    }
    const Box& box = m_boxes[static_cast<std::size_t>(chosen->data().toInt())];
    const QString phrase = chosen->property(kPhrase).toString();
    menu.hide();
    box.line->setText(box.line->text().isEmpty() ? phrase : box.line->text() + u' ' + phrase);
    box.line->end(false);
    setActiveAction(box.action);
    box.line->setFocus(Qt::PopupFocusReason);
    return true;
}

bool CommandMenu::keyInBox(const Box& box, int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QAction* const command = m_commands.find(box.command);
        const bool usable = command == nullptr || (command->isEnabled() && command->isVisible());
        const QString text = box.line->text();
        if (usable && !text.trimmed().isEmpty()) {
            close();
            choose(box.command, text);
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
        setActiveAction(box.action);
        QKeyEvent walk(QEvent::KeyPress, up ? Qt::Key_Up : Qt::Key_Down, Qt::NoModifier);
        QMenu::keyPressEvent(&walk);
        return true;
    }
    default:
        return false;
    }
}

} // namespace tessel
