// Which commands of the main window stand where, and how their controls follow the table.
#pragma once

#include "controls/bars/CommandMenu.h"
#include "controls/bars/Ribbon.h"

#include <vector>

namespace tessel {

class CommandSet;
class Commands;
class ReportRecord;
enum class Command : int;
struct CommandItem;

// The numbers of commands that have a row in the table; nothing else is to be seen anywhere.
std::vector<int> numbers(std::initializer_list<Command> commands);

// All commands of the table, with what they show.
std::vector<CommandItem> LoadCommands(const Commands& commands);
// Brings the controls up to date of all commands that a change can have touched, a bit of `Touches`
// each. `row`: the current row of a location, nullptr for none.
void refresh(CommandSet& controls, const Commands& commands, unsigned touched, const ReportRecord* row);

// The ribbon with its tabs and the menu of the program.
RibbonPlan CreateRibbon();
std::vector<int> CreateQuickBar();
// The panes of the status bar, which the views share.
std::vector<int> CreateStatusBar_NoteBoard();

// The bar over the messages, and the menu of one.
std::vector<int> CreateMessageToolbar();
std::vector<MenuEntry> InitInboxMenuRC();

// The menu of a row, by the kind of its location: the own one, a virtual one, any other.
std::vector<MenuEntry> CreateRightClickMenu_Local(const QString& heading);
std::vector<MenuEntry> CreateMiniToolBar_VirtualLocation(const QString& heading);
std::vector<MenuEntry> CreateMiniToolBar(const QString& heading, const QString& alertPrefix,
                                         const QStringList& snippets);
std::vector<MenuEntry> rowMenu(const Commands& commands, const ReportRecord& row);
// Whom a message goes to. `groups`: commands of those that are offered.
std::vector<MenuEntry> CreateMessageMiniBar(const std::vector<int>& groups);
std::vector<MenuEntry> CreateSortMenu();

} // namespace tessel
