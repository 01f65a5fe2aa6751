// A menu made of a description: commands by number, headings, sub-menus and a line to type in.
//
//     auto* const menu = new CommandMenu(commands, this);
//     menu->setEntries({MenuEntry::heading(name), MenuEntry::command(404), MenuEntry::separator()});
//     connect(menu, &CommandMenu::triggered, this, &frmThis::execute);
//
// Unlike a menu of the set's own actions it tells each press itself, with the text of the line, and
// the set hears nothing of it.
#pragma once

#include <QMenu>

#include <optional>
#include <utility>
#include <vector>

class QLineEdit;

namespace tessel {

class CommandSet;

struct MenuEntry {
    enum class Kind { Command, Separator, Heading, SubMenu, TextBox };

    // With the caption of the set and as checked, grey or hidden as there; or with a text of its own,
    // of any origin, for what the set does not know. Told with `says` instead of the typed text if
    // there is one.
    static MenuEntry command(int id, const QString& text = {}, std::optional<QString> says = {}) {
        return {Kind::Command, id, text, std::move(says)};
    }
    static MenuEntry separator() { return {}; }
    static MenuEntry heading(const QString& text) { return {Kind::Heading, 0, text}; }
    static MenuEntry subMenu(const QString& text, std::vector<MenuEntry> entries, int icon = -1) {
        return {Kind::SubMenu, 0, text, {}, std::move(entries), icon};
    }
    // At most one in a menu. Enter in it chooses the command `id`, unless nothing was typed: whoever
    // opens a menu by Enter must not choose by the same key. `prefix`, when the text begins with it in
    // any case, does not count into the `maxLength` characters.
    static MenuEntry textBox(int id, const QString& prompt, int maxLength, const QString& prefix = {}) {
        return {Kind::TextBox, id, prompt, prefix, {}, -1, maxLength};
    }

    Kind kind = Kind::Separator;
    int id = 0;
    QString text = {};                // plain
    std::optional<QString> says = {}; // of a text box: its prefix
    std::vector<MenuEntry> entries = {};
    int icon = -1;
    int maxLength = 0;
};

class CommandMenu : public QMenu {
    Q_OBJECT
public:
    explicit CommandMenu(CommandSet& commands, QWidget* parent = nullptr);

    void setEntries(const std::vector<MenuEntry>& entries);
    // Null without a text box.
    QLineEdit* textBox() const { return m_box; }

signals:
    // Comes after the menu has closed.
    void triggered(int id, const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fill(QMenu& menu, const std::vector<MenuEntry>& entries);
    void addCommand(QMenu& menu, const MenuEntry& entry);
    void addTextBox(QMenu& menu, const MenuEntry& entry);
    void choose(int id, const std::optional<QString>& says);
    bool keyInBox(int key);

    CommandSet& m_commands;
    QLineEdit* m_box = nullptr;
    QAction* m_boxAction = nullptr;
    int m_boxCommand = 0;
};

} // namespace tessel
