// The commands of a window by number. Ribbon, bars and menus show the same commands, so that a
// caption, a check or a grey command is set once and seen everywhere.
//
// A window makes one set and names numbers from there on:
//
//     auto* const commands = new CommandSet({{105, "New Message", "Write to others", 105}, ...}, this);
//     commands->setIconProvider([this](int icon) { return m_images.image(icon, palette()); });
//     commands->setMenu(304, menu);              // pressing it opens the menu
//     connect(commands, &CommandSet::triggered, this, &frmThis::execute);
//     auto* const bar = new CommandBar(*commands, {105, kSeparator, 304}, tr("Messages"), this);
//     auto* const foot = new PaneBar(*commands, {800, 801}, this);
//     commands->setEnabled(105, online);         // whenever it changes
//
// The bars stand in any layout, take what room they get and put the rest into a menu of their own.
#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QFontMetrics;
class QMenu;

namespace tessel {

struct CommandItem {
    int id = 0;
    QString caption;  // an "&" marks the mnemonic, "&&" shows one: see plainCaption()
    QString tip = {}; // plain text, of any origin
    int icon = -1;
    bool checkable = false;
    bool oncePerDoubleClick = false; // of two clicks of the mouse the second is none
};

// Among the numbers of a bar or a menu.
inline constexpr int kSeparator = 0;

// A text of any origin as a caption that shows exactly these characters, in one line.
QString plainCaption(const QString& text);
// The other way: a caption as it is read out, without the mark of its mnemonic.
QString spokenCaption(const QString& caption);
// The side of the icon beside a caption in this font, in pixels.
int smallIconSide(const QFontMetrics& metrics);
// A line that cannot be chosen, over the commands that belong to it.
QAction* addMenuHeading(QMenu& menu, const QString& text);

class CommandSet : public QObject {
    Q_OBJECT
public:
    using IconProvider = std::function<QIcon(int icon)>;

    explicit CommandSet(const std::vector<CommandItem>& items, QObject* parent = nullptr);

    // Null for a number that is not in the set. The setters do nothing for such a number.
    QAction* find(int id) const { return m_commands.value(id).action; }
    // The actions of the numbers that are in the set, and a new separator owned by `parent` for each
    // kSeparator.
    QList<QAction*> actions(const std::vector<int>& ids, QObject* parent) const;
    bool oncePerDoubleClick(const QAction* action) const { return m_once.contains(action); }

    // A long caption is cut on bars, and whole in menus, tips and for screen readers.
    void setCaption(int id, const QString& caption);
    void setTip(int id, const QString& tip);
    void setIcon(int id, int icon);
    // A press does not change the check: whoever hears of it decides, and says so here.
    void setChecked(int id, bool checked);
    void setEnabled(int id, bool enabled);
    void setVisible(int id, bool visible);
    // Pressing it opens the menu, which is the caller's. To be set before bars are made of the set.
    void setMenu(int id, QMenu* menu);

    // Icons cost time to load and to draw, so nobody is asked for one before a bar has been painted.
    void setIconProvider(IconProvider provider);
    void wantIcons();
    // Has them drawn anew, for icons that depend on the palette.
    void LoadIcons();
    // An icon for an entry that is no command; null before icons are wanted.
    QIcon picture(int icon) const;

signals:
    void triggered(int id);

private:
    struct Command {
        QAction* action = nullptr;
        int icon = -1;
    };

    void press(int id);
    void loadIcons();

    QHash<int, Command> m_commands;
    QList<const QAction*> m_once;
    IconProvider m_provider;
    bool m_iconsWanted = false;
    bool m_iconsDue = false;
};

} // namespace tessel
