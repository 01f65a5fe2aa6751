// The commands of a window by number. Ribbon, bars and menus show the same commands, so that a
// caption, a check or a grey command is set once and seen everywhere.
#pragma once

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace tessel {

struct CommandItem {
    int id = 0;
    QString caption;  // an "&" marks the mnemonic, "&&" shows one: see plainCaption()
    QString tip = {}; // plain text, of any origin
    int icon = -1;
    bool checkable = false;
    bool opensMenu = false; // its owner does so when it is pressed, by CommandBar::openMenu()
};

// A text of any origin as a caption that shows exactly these characters, in one line.
QString plainCaption(const QString& text);
// The other way: a caption as it is read out, without the mark of its mnemonic.
QString spokenCaption(const QString& caption);
// A line that cannot be chosen, over the commands that belong to it.
QAction* addMenuHeading(QMenu& menu, const QString& text);

class CommandSet : public QObject {
    Q_OBJECT
public:
    using IconProvider = std::function<QIcon(int icon)>;

    explicit CommandSet(const std::vector<CommandItem>& items, QObject* parent = nullptr);

    // Null for a number that is not in the set. The setters do nothing for such a number.
    QAction* find(int id) const;
    bool opensMenu(int id) const;
    bool hasIcon(int id) const; // or will have, once icons are loaded

    void setCaption(int id, const QString& caption);
    void setTip(int id, const QString& tip);
    void setIcon(int id, int icon);
    // A press does not change the check: whoever hears of it decides, and says so here.
    void setChecked(int id, bool checked);
    void setEnabled(int id, bool enabled);
    void setVisible(int id, bool visible);

    // Icons cost time to load and to draw, so nobody is asked for one before a bar has been painted.
    void setIconProvider(IconProvider provider);
    void wantIcons();
    // Has them drawn anew, for icons that depend on the palette.
    void renewIcons();
    // An icon for an entry that is no command; null before icons are wanted.
    QIcon picture(int icon) const;

signals:
    void triggered(int id);

private:
    struct Command {
        QAction* action = nullptr;
        int icon = -1;
        bool opensMenu = false;
    };

    void press(int id);
    void loadIcons();

    QHash<int, Command> m_commands;
    IconProvider m_provider;
    bool m_iconsWanted = false;
    bool m_iconsDue = false;
};

} // namespace tessel
