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
// On a bar; what a quick status or a patient is called must not push the other commands off it.
constexpr int kBarChars = 24;

// Stands for an icon until it is there, so that no button changes its size.
QIcon roomForIcon() {
    QPixmap nothing(1, 1);
    nothing.fill(Qt::transparent);
    return nothing;
}

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

int smallIconSide(const QFontMetrics& metrics) {
    return metrics.height() >= 24 ? 24 : 16;
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
        auto* const action = new QAction(this);
        m_commands.insert(item.id, {action, item.icon});
        setCaption(item.id, item.caption);
        action->setToolTip(item.tip);
        action->setCheckable(item.checkable);
        // Which menu of the system a command would belong to is not to be guessed by its caption.
        action->setMenuRole(QAction::NoRole);
        if (item.icon >= 0) {
            action->setIcon(roomForIcon());
        }
        if (item.oncePerDoubleClick) {
            m_once.append(action);
        }
        connect(action, &QAction::triggered, this, [this, id = item.id] { press(id); });
    }
}

QList<QAction*> CommandSet::actions(const std::vector<int>& ids, QObject* parent) const {
    QList<QAction*> all;
    for (const int id : ids) {
        if (QAction* const action = find(id); action != nullptr) {
            all.append(action);
        } else if (id == kSeparator) {
            all.append(new QAction(parent));
            all.back()->setSeparator(true);
        }
    }
    return all;
}

void CommandSet::setCaption(int id, const QString& caption) {
    if (QAction* const action = find(id); action != nullptr && action->text() != caption) {
        action->setIconText(plainCaption(singleLine(spokenCaption(caption), kBarChars)));
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
        found->action->setIcon(m_iconsWanted || icon < 0 ? picture(icon) : roomForIcon());
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

void CommandSet::setMenu(int id, QMenu* menu) {
    if (QAction* const action = find(id); action != nullptr) {
        action->setMenu(menu);
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
    LoadIcons();
}

void CommandSet::wantIcons() {
    if (!m_iconsWanted) {
        m_iconsWanted = true;
        LoadIcons();
    }
}

void CommandSet::LoadIcons() {
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
