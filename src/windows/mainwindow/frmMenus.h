// Which commands of the main window stand where: ribbon, bars and menus as plain descriptions.
#pragma once

#include "controls/bars/CommandBars.h"
#include "controls/bars/CommandMenu.h"
#include "controls/bars/Ribbon.h"

#include <vector>

namespace tessel {

class Commands;
class ReportRecord;

// Commands of the window alone, beside those of the table.
inline constexpr int kShowConnections = 120;
inline constexpr int kShowAdapters = 121;
inline constexpr int kCheckForUpdates = 122;
inline constexpr int kUpdateOptions = 123;
inline constexpr int kSortMenu = 810;

// All commands that can be used, with what they show.
std::vector<CommandItem> commandItems(const Commands& commands);

RibbonPlan ribbonPlan();
std::vector<int> quickBarIds();
std::vector<int> paneIds();

// The menu of a row, by the kind of its location.
std::vector<MenuEntry> rowMenu(const Commands& commands, const ReportRecord& row);
std::vector<MenuEntry> sortMenu();

} // namespace tessel
