#include "controls/bars/CommandBars.h"

#include "controls/list/ReportText.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <utility>

namespace tessel {

namespace {

// A menu as wide as the screen hides what it is about.
constexpr int kHeadingChars = 60;

} // namespace

QString plainCaption(const QString& text) {
    QString caption = singleLine(text);
    // A menu takes what stands behind a tabulator for a shortcut; singleLine() leaves none.
    caption.replace(u'&', QStringLiteral("&&"));
    return caption;
}

QString spokenCaption(const QString& caption) {
    QString spoken;
    spoken.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption.at(i) == u'&' && ++i == caption.size()) {
            break;
        }
        spoken.append(caption.at(i));
    }
    return spoken.trimmed();
}

QAction* addMenuHeading(QMenu& menu, const QString& text) {
    auto* const heading = new QAction(plainCaption(singleLine(text, kHeadingChars)), &menu);
    heading->setEnabled(false);
    QFont bold = menu.font();
    bold.setBold(true);
    heading->setFont(bold);
    menu.addAction(heading);
    return heading;
}

CommandSet::CommandSet(const std::vector<CommandItem>& items, QObject* parent) : QObject(parent) {
    m_commands.reserve(static_cast<qsizetype>(items.size()));
    for (const CommandItem& item : items) {
        Q_ASSERT(!m_commands.contains(item.id));
        auto* const action = new QAction(item.caption, this);
        action->setToolTip(item.tip);
        action->setCheckable(item.checkable);
        // Which menu of the system a command would belong to is not to be guessed by its caption.
        action->setMenuRole(QAction::NoRole);
        connect(action, &QAction::triggered, this, [this, id = item.id] { press(id); });
        m_commands.insert(item.id, {action, item.icon, item.opensMenu});
    }
}

QAction* CommandSet::find(int id) const {
    return m_commands.value(id).action;
}

bool CommandSet::opensMenu(int id) const {
    return m_commands.value(id).opensMenu;
}

bool CommandSet::hasIcon(int id) const {
    const auto found = m_commands.constFind(id);
    return found != m_commands.cend() && found->icon >= 0;
}

void CommandSet::setCaption(int id, const QString& caption) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setText(caption);
    }
}

void CommandSet::setTip(int id, const QString& tip) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setToolTip(tip);
    }
}

void CommandSet::setIcon(int id, int icon) {
    const auto found = m_commands.find(id);
    if (found != m_commands.end() && found->icon != icon) {
        found->icon = icon;
        found->action->setIcon(picture(icon));
    }
}

void CommandSet::setChecked(int id, bool checked) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setChecked(checked);
    }
}

void CommandSet::setEnabled(int id, bool enabled) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setEnabled(enabled);
    }
}

void CommandSet::setVisible(int id, bool visible) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setVisible(visible);
    }
}

// An action toggles itself before it tells.
void CommandSet::press(int id) {
    QAction* const action = find(id);
    if (action->isCheckable()) {
        action->setChecked(!action->isChecked());
    }
    emit triggered(id);
}

void CommandSet::setIconProvider(IconProvider provider) {
    m_provider = std::move(provider);
    renewIcons();
}

void CommandSet::wantIcons() {
    if (!m_iconsWanted) {
        m_iconsWanted = true;
        renewIcons();
    }
}

void CommandSet::renewIcons() {
    if (!m_iconsWanted || m_iconsDue || !m_provider) {
        return;
    }
    m_iconsDue = true;
    QTimer::singleShot(0, this, &CommandSet::loadIcons);
}

QIcon CommandSet::picture(int icon) const {
    return m_iconsWanted && m_provider && icon >= 0 ? m_provider(icon) : QIcon();
}

void CommandSet::loadIcons() {
    m_iconsDue = false;
    for (const Command& command : std::as_const(m_commands)) {
        if (command.icon >= 0) {
            command.action->setIcon(picture(command.icon));
        }
    }
}

} // namespace tessel
