// What all bars of commands share: buttons by number, one stop of the Tab key with arrows inside, a
// menu for what has no room, and icons that come after the first painting.
#pragma once

#include "controls/bars/CommandBarsButton.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QMenu;

namespace tessel {

class CommandBar : public QWidget {
    Q_OBJECT
public:
    ~CommandBar() override;

    // Null for a command that has no button here. One without room is hidden and in the bar's menu.
    CommandButton* button(int id) const;
    // Opens the menu at the button of the command, or at the one through which it is reached now.
    void openMenu(int id, QMenu& menu);
    // Gives the bar the keyboard, as the Tab key would. Escape gives it back.
    void takeFocus() { setFocus(Qt::ShortcutFocusReason); }

protected:
    CommandBar(CommandSet& commands, QWidget* parent);

    CommandSet& commands() const { return m_commands; }
    // Null for a number that is not in the set. The arrows to the sides stay within a row.
    CommandButton* addButton(int id, int row, QWidget* parent);
    void adopt(CommandButton* button, int row);
    // The button of a menu that is filled whenever it opens.
    CommandButton* addMenuButton(const QString& caption, CommandButton::Glyph glyph, int row,
                                 QWidget* parent);

    // Places the buttons in the room that there is, and hides the rest.
    virtual void layOut() = 0;
    void queueLayOut();
    void layOutNow();
    virtual void fillMenu(CommandButton& button, QMenu& menu) = 0;
    // Through which button a command is reached that has no room.
    virtual CommandButton* standIn(int id) const = 0;
    // Where the keyboard arrives when it was not here before.
    virtual CommandButton* firstStop() const;

    void openMenuAt(CommandButton& button, QMenu& menu);
    // While it lives, menus open with their first entry chosen, as they do at a focused button.
    class KeyboardUse {
    public:
        explicit KeyboardUse(CommandBar& bar) : m_bar(&bar) { bar.m_keyed = true; }
        ~KeyboardUse() {
            if (m_bar != nullptr) {
                m_bar->m_keyed = false;
            }
        }
        Q_DISABLE_COPY_MOVE(KeyboardUse)

    private:
        QPointer<CommandBar> m_bar;
    };
    bool canFocus(const CommandButton* button) const;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Placed {
        CommandButton* button = nullptr;
        int row = 0;
    };

    void focusMoved(QWidget* old, QWidget* now);
    void enter();
    bool keyOnButton(CommandButton& from, int key);
    CommandButton* beside(const CommandButton& from, int key) const;

    CommandSet& m_commands;
    std::vector<Placed> m_buttons;
    QPointer<CommandButton> m_last; // had the keyboard last
    QPointer<QWidget> m_back;       // had it before the bar
    bool m_queued = false;
    bool m_layingOut = false;
    bool m_keyed = false;
    bool m_passing = false; // the keyboard goes through the bar itself
};

} // namespace tessel
