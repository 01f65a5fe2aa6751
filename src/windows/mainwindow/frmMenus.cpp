#include "windows/mainwindow/frmMenus.h"

#include "controls/look/Images.h"
#include "engine/alerts/mod_AlertEngine.h"
#include "engine/mainwindow/mod_Commands.h"
#include "engine/presence/mod_LocationViews.h"

namespace tessel {

namespace {

MenuEntry at(int id) {
    return MenuEntry::command(id);
}

// Keeps the entries whose commands exist, so that no menu shows what does nothing.
std::vector<MenuEntry> existing(std::initializer_list<MenuEntry> entries) {
    std::vector<MenuEntry> kept;
    for (const MenuEntry& entry : entries) {
        const CommandRow* const row = findCommand(entry.id);
        if (entry.kind != MenuEntry::Kind::Command || (row != nullptr && row->exists)) {
            kept.push_back(entry);
        }
    }
    return kept;
}

} // namespace

std::vector<CommandItem> commandItems(const Commands& commands) {
    std::vector<CommandItem> items;
    for (const CommandRow* row = firstCommand(); row != endOfCommands(); ++row) {
        if (row->exists) {
            const int icon = Images::fileName(row->id).isEmpty() ? -1 : row->id;
            const bool quickStatus = row->id >= 201 && row->id <= 203;
            items.push_back({row->id, commands.caption(row->id), commands.tip(row->id), icon, row->checkable,
                             quickStatus});
        }
    }
    items.push_back({kShowConnections, QStringLiteral("Active &Connections"),
                     QStringLiteral("All locations as the network tells of them")});
    items.push_back(
        {kShowAdapters, QStringLiteral("Network &Adapter"), QStringLiteral("Choose the network adapter")});
    items.push_back({kCheckForUpdates, QStringLiteral("Check for &Updates"),
                     QStringLiteral("Look for a newer version now")});
    items.push_back(
        {kUpdateOptions, QStringLiteral("Update O&ptions"), QStringLiteral("Choose how updates are made")});
    return items;
}

RibbonPlan ribbonPlan() {
    RibbonPlan plan;
    plan.systemCaption = QStringLiteral("&Station");
    plan.systemIds = {102,           110,        kSeparator,       kShowConnections,
                      kShowAdapters, kSeparator, kCheckForUpdates, kUpdateOptions,
                      kSeparator,    100};
    plan.tabs = {350, 351, 352};
    plan.groups[kAllTabs] = {
        {QStringLiteral("Status"), {{102, true}, {300, false}, {205, false}}},
        {QStringLiteral("Alerts"), {{106, true}, {104, false}, {107, false}}},
        {QStringLiteral("View"), {{301, false}, {110, false}}},
    };
    return plan;
}

std::vector<int> quickBarIds() {
    return {200, 201, 202, 203, 205};
}

std::vector<int> paneIds() {
    return {112, 706, 801, 800, kSortMenu};
}

std::vector<MenuEntry> rowMenu(const Commands& commands, const ReportRecord& row) {
    const MenuEntry line = MenuEntry::separator();
    const MenuEntry heading = MenuEntry::heading(commands.quickMenuHeading(row));
    if (commands.isOwn(row)) {
        return existing(
            {heading, at(438), at(432), at(433), at(434), at(435), line, at(436), at(437), line, at(412)});
    }
    if (IsVirtualLocation(row)) {
        return existing(
            {heading, at(407), at(418), at(410), at(408), at(409), line, at(416), at(417), line, at(412)});
    }
    return existing({heading,
                     MenuEntry::textBox(404, QStringLiteral("Text of an alert"),
                                        AlertEngine::kLongestQuickAlert, commands.quickAlertPrefix()),
                     at(402), MenuEntry::heading(QStringLiteral("     Alerts")), at(404), at(405), at(406),
                     line, at(407), at(418), at(410), at(408), at(409), line, at(416), at(417), line,
                     at(412)});
}

std::vector<MenuEntry> sortMenu() {
    const auto heading = [](int id) {
        return MenuEntry::heading(QString::fromLatin1(findCommand(id)->caption));
    };
    return {heading(760),           at(761),      at(762), MenuEntry::separator(),
            heading(765),           at(766),      at(767), at(768),
            MenuEntry::separator(), heading(770), at(771), at(772)};
}

} // namespace tessel
