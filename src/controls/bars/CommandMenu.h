// A menu made of a description: commands by number, headings, sub-menus and lines to type in.
//
//     auto* const menu = new CommandMenu(commands, this);
//     menu->setEntries({MenuEntry::heading(name), MenuEntry::command(404), MenuEntry::separator()});
//     connect(menu, &CommandMenu::triggered, this, &frmThis::execute);
//
// Unlike a menu of the set's own actions it tells each press itself, with the text of the line that stands
// next above the entry, and the set hears nothing of it.
#pragma once

#include <QMenu>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QActionGroup;
class QLineEdit;

namespace tessel {

class CommandSet;

// What a line to type in takes.
struct MenuBox {
    QString prompt;
    int maxLength = 0;
    QString prefix = {}; // when the text begins with it in any case, it does not count into the length
    // Mends what was put in, so that the line shows what will be sent.
    std::function<QString(const QString& text)> mend = {};
    // A remark that shows below the line for as long as it is not empty.
    std::function<QString(const QString& text)> warn = {};
};

struct MenuEntry {
    enum class Kind { Command, Separator, Heading, SubMenu, TextBox, Phrase };

    // With the caption of the set and as checked, grey or hidden as there; or with a text of its own,
    // of any origin, for what the set does not know. Told with `says` instead of the typed text if
    // there is one.
    static MenuEntry command(int id, const QString& text = {}, std::optional<QString> says = {}) {
        return {Kind::Command, id, text, std::move(says)};
    }
    // One of several that exclude each other: those that stand together.
    static MenuEntry choice(int id) { return {.kind = Kind::Command, .id = id, .exclusive = true}; }
    static MenuEntry separator() { return {}; }
    static MenuEntry heading(const QString& text) { return {Kind::Heading, 0, text}; }
    static MenuEntry subMenu(const QString& text, std::vector<MenuEntry> entries, int icon = -1) {
        return {Kind::SubMenu, 0, text, {}, std::move(entries), icon};
    }
    // Enter in it chooses the command `id`, unless nothing was typed: whoever opens a menu by Enter must
    // not choose by the same key.
    static MenuEntry textBox(int id, MenuBox box) {
        return {Kind::TextBox, id, {}, {}, {}, -1, std::move(box)};
    }
    // Puts its text into the line above, behind what stands there; the menu stays open. In a sub-menu
    // alone.
    static MenuEntry phrase(const QString& text) { return {Kind::Phrase, 0, text}; }

    Kind kind = Kind::Separator;
    int id = 0;
    QString text = {}; // plain
    std::optional<QString> says = {};
    std::vector<MenuEntry> entries = {};
    int icon = -1;
    MenuBox box = {};
    bool exclusive = false;
};

class CommandMenu : public QMenu {
    Q_OBJECT
public:
    explicit CommandMenu(CommandSet& commands, QWidget* parent = nullptr);

    void setEntries(const std::vector<MenuEntry>& entries);
    // The line whose Enter chooses this command; null for none.
    QLineEdit* textBox(int command) const;

signals:
    // Comes after the menu has closed.
    void triggered(int id, const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Box {
        int command;
        QLineEdit* line;
        QAction* action;
    };

    void fill(QMenu& menu, const std::vector<MenuEntry>& entries);
    void addCommand(QMenu& menu, const MenuEntry& entry, QActionGroup* choices);
    void addPhrase(QMenu& menu, const MenuEntry& entry);
    void addTextBox(QMenu& menu, const MenuEntry& entry);
    QLineEdit* createLine(QMenu& menu, const MenuBox& box);
    void choose(int id, const QString& text);
    bool keyInBox(const Box& box, int key);
    bool takePhrase(QMenu& menu, QEvent& event);

    CommandSet& m_commands;
    std::vector<Box> m_boxes;
};

} // namespace tessel
