#include "windows/mainwindow/mod_Toolbars.h"

#include "controls/bars/CommandBars.h"
#include "controls/look/Images.h"
#include "engine/alerts/mod_AlertEngine.h"
#include "engine/alerts/mod_Compose.h"
#include "engine/core/mod_Definitions.h"
#include "engine/mainwindow/mod_Commands.h"
#include "engine/presence/mod_LocationViews.h"

namespace tessel {

namespace {

constexpr Command kLine{kSeparator}; // among commands

// The first command is the large one.
void add(std::vector<RibbonGroup>& groups, const char* caption, std::initializer_list<Command> commands) {
    RibbonGroup group{QString::fromLatin1(caption), {}};
    for (const int number : numbers(commands)) {
        group.buttons.push_back({number, group.buttons.empty()});
    }
    if (!group.buttons.empty()) {
        groups.push_back(std::move(group));
    }
}

MenuEntry headingOf(Command command) {
    return MenuEntry::heading(QString::fromLatin1(findCommand(static_cast<int>(command))->caption));
}

// Entries of those commands that have a row, a line for each `kLine`.
void add(std::vector<MenuEntry>& menu, std::initializer_list<Command> commands) {
    for (const int number : numbers(commands)) {
        menu.push_back(number == kSeparator ? MenuEntry::separator() : MenuEntry::command(number));
    }
}

} // namespace

std::vector<int> numbers(std::initializer_list<Command> commands) {
    std::vector<int> made;
    for (const Command command : commands) {
        if (command == kLine || findCommand(static_cast<int>(command)) != nullptr) {
            made.push_back(static_cast<int>(command));
        }
    }
    return made;
}

std::vector<CommandItem> LoadCommands(const Commands& commands) {
    std::vector<CommandItem> items;
    for (const CommandRow& row : commandTable()) {
        const int picture = commands.picture(row.number());
        items.push_back({row.number(), commands.caption(row.number()), commands.tip(row.number()),
                         Images::fileName(picture).isEmpty() ? -1 : picture, row.checked != nullptr,
                         row.oncePerDoubleClick});
    }
    return items;
}

void refresh(CommandSet& controls, const Commands& commands, unsigned touched, const ReportRecord* row) {
    for (const CommandRow& command : commandTable()) {
        const unsigned touches = command.touches | (command.sends ? Touches::Online : Touches::Nothing);
        if (touched != Touches::All && (touches & touched) == 0) {
            continue;
        }
        const int number = command.number();
        controls.setEnabled(number, commands.enabled(number, row));
        if (command.captionNow != nullptr) {
            controls.setCaption(number, commands.caption(number, row));
        }
        if (command.tipNow != nullptr) {
            controls.setTip(number, commands.tip(number));
        }
        if (command.pictureNow != nullptr) {
            controls.setIcon(number, commands.picture(number, row));
        }
        if (command.checked != nullptr) {
            controls.setChecked(number, commands.checked(number));
        }
        if (command.offered != nullptr) {
            controls.setVisible(number, commands.offered(command));
        }
    }
}

RibbonPlan CreateRibbon() {
    RibbonPlan plan;
    plan.systemCaption = QStringLiteral("&Station");
    plan.systemIds = numbers({Command::SetStatus, Command::OnTop, Command::Options, kLine,
                              Command::Connections, Command::Adapters, kLine, Command::CheckForUpdates,
                              Command::UpdateOptions, Command::About, kLine, Command::ShutDown});
    plan.tabs = numbers({Command::Home, Command::StatusView, Command::Favorites, Command::Inbox});
    std::vector<RibbonGroup>& groups = plan.groups[kAllTabs];
    add(groups, "Status", {Command::SetStatus, Command::DND, Command::Occupied, Command::LocationNote});
    add(groups, "Alerts", {Command::RingDoorbell, Command::Notifications, Command::Refresh});
    add(groups, "Messages", {Command::NewMessage, Command::MessageMenu, Command::ManageSnippets});
    groups.push_back({QStringLiteral("Staff"), {}});
    for (int tag = kFirstStaffTag; IsLocationTag(tag); ++tag) {
        groups.back().buttons.push_back({tag, false});
    }
    add(groups, "View", {Command::Preview, Command::OnTop, Command::OccupiedLocations, Command::Usage});
    return plan;
}

std::vector<int> CreateQuickBar() {
    return numbers({Command::MyStatus, Command::Quick1, Command::Quick2, Command::Quick3, Command::Occupied});
}

std::vector<int> CreateStatusBar_NoteBoard() {
    return numbers({Command::SendDoorbell, Command::FavoritesList, Command::Notes, Command::SmallerFont,
                    Command::LargerFont, Command::SortOptions});
}

std::vector<int> CreateMessageToolbar() {
    return numbers({Command::OpenMessage, Command::PrintMessage, Command::DeleteMessage, kLine,
                    Command::MessagesToTop, Command::ClearMessages});
}

std::vector<MenuEntry> InitInboxMenuRC() {
    std::vector<MenuEntry> menu;
    add(menu, {Command::OpenMessage, Command::PrintMessage, Command::DeleteMessage});
    return menu;
}

std::vector<MenuEntry> CreateRightClickMenu_Local(const QString& heading) {
    std::vector<MenuEntry> menu{MenuEntry::heading(heading)};
    add(menu, {Command::OwnSetStatus, Command::OwnClearStatus, Command::OwnOccupied, Command::OwnNote,
               Command::OwnClearTag, kLine, Command::OwnAddFavorite, Command::OwnRemoveFavorite, kLine,
               Command::Close});
    return menu;
}

std::vector<MenuEntry> CreateMiniToolBar_VirtualLocation(const QString& heading) {
    std::vector<MenuEntry> menu{MenuEntry::heading(heading)};
    add(menu, {Command::RowClearStatus, Command::RowSetStatus, Command::RowClearTag, Command::RowNotOccupied,
               Command::RowNote, kLine, Command::RowAddFavorite, Command::RowFavoriteOptions, kLine,
               Command::Close});
    return menu;
}

std::vector<MenuEntry> CreateMiniToolBar(const QString& heading, const QString& alertPrefix,
                                         const QStringList& snippets) {
    std::vector<MenuEntry> phrases;
    for (const QString& snippet : snippets) {
        phrases.push_back(MenuEntry::phrase(snippet));
    }
    if (!phrases.empty()) {
        phrases.push_back(MenuEntry::separator());
    }
    constexpr int kSnippets = static_cast<int>(Command::RowSnippets);
    phrases.push_back(MenuEntry::command(kSnippets, kAddSnippet, kAddSnippet));

    // A message to a color travels in a list of its own, which ends at the mark.
    const auto warn = [alertPrefix](const QString& text) {
        const bool toColor = !alertPrefix.isEmpty() && text.startsWith(alertPrefix, Qt::CaseInsensitive);
        return toColor && text.contains(ListMark) ? QStringLiteral("Only the text before :|: will arrive")
                                                  : QString();
    };
    std::vector<MenuEntry> menu{
        MenuEntry::heading(heading),
        MenuEntry::textBox(
            static_cast<int>(Command::RowMessage),
            {QStringLiteral("Message"), AlertEngine::kLongestQuickMessage, alertPrefix, FitMessage, warn})};
    add(menu, {Command::RowMessage, Command::RowSnippets});
    menu.push_back(MenuEntry::subMenu(QStringLiteral("Snippets "), std::move(phrases),
                                      static_cast<int>(Image::Snippets)));
    menu.push_back(MenuEntry::heading(QStringLiteral("     Alerts")));
    menu.push_back(MenuEntry::textBox(
        static_cast<int>(Command::RowDoorBell),
        {QStringLiteral("Text of an alert"), AlertEngine::kLongestQuickAlert, alertPrefix}));
    add(menu,
        {Command::RowDoorBell, Command::RowPhoneCall, Command::RowUrgent, kLine, Command::RowClearStatus,
         Command::RowSetStatus, Command::RowClearTag, Command::RowNotOccupied, Command::RowNote, kLine,
         Command::RowAddFavorite, Command::RowFavoriteOptions, kLine, Command::Close});
    return menu;
}

std::vector<MenuEntry> rowMenu(const Commands& commands, const ReportRecord& row) {
    const QString heading = commands.quickMenuHeading(row);
    return commands.isOwn(row) ? CreateRightClickMenu_Local(heading)
           : IsVirtualLocation(row)
               ? CreateMiniToolBar_VirtualLocation(heading)
               : CreateMiniToolBar(heading, commands.quickAlertPrefix(), commands.snippets());
}

std::vector<MenuEntry> CreateMessageMiniBar(const std::vector<int>& groups) {
    std::vector<MenuEntry> menu{headingOf(Command::SendTo)};
    add(menu, {Command::ToEveryone, Command::ToFavorites, Command::ToRecipients, kLine});
    menu.push_back(headingOf(Command::MyGroups));
    for (const int group : groups) {
        menu.push_back(MenuEntry::command(group));
    }
    return menu;
}

std::vector<MenuEntry> CreateSortMenu() {
    std::vector<MenuEntry> menu;
    const auto addChoices = [&menu](Command heading, std::initializer_list<Command> choices) {
        if (!menu.empty()) {
            menu.push_back(MenuEntry::separator());
        }
        menu.push_back(headingOf(heading));
        for (const int number : numbers(choices)) {
            menu.push_back(MenuEntry::choice(number));
        }
    };
    addChoices(Command::HomeSort, {Command::HomeByColor, Command::HomeByName});
    addChoices(Command::StatusSort,
               {Command::StatusByTimeColor, Command::StatusByTimeName, Command::StatusByNameTime});
    addChoices(Command::FavoritesSort, {Command::FavoritesByColor, Command::FavoritesByName});
    return menu;
}

} // namespace tessel
