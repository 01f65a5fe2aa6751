// All commands of the main window, one row each: what a command is called, when it can be used and
// what it does. Ribbon, menus, bars and tray name rows.
#pragma once

#include "engine/ports/cWindows.h"

#include <QString>

#include <optional>
#include <span>

namespace tessel {

class AlertEngine;
class Favorites;
class Groups;
class Inbox;
class LocalStatus;
class LocationActions;
class NetworkMC;
class OwnPresence;
class ReportRecord;
class Settings;
class Shell;
class Snippets;
class Timer;
class Updates;
struct OwnState;
struct Restrictions;

// Their numbers. One without a row in the table is nowhere to be seen.
enum class Command : int {
    StaffTag1 = 30, // ten of them, by the numbers of the tags
    ShutDown = 100,
    Options = 101,
    SetStatus = 102,
    About = 103,
    Notifications = 104,
    NewMessage = 105,
    RingDoorbell = 106,
    Refresh = 107,
    OccupiedLocations = 108,
    ManageSnippets = 109,
    OnTop = 110,
    Usage = 111,
    SendDoorbell = 112,
    Connections = 120,
    Adapters = 121,
    CheckForUpdates = 122,
    UpdateOptions = 123,
    MyStatus = 200,
    Quick1 = 201,
    Quick2 = 202,
    Quick3 = 203,
    Occupied = 205,
    DND = 300,
    Preview = 301,
    LocationNote = 302,
    MessageMenu = 304,
    Home = 350,
    StatusView = 351,
    Favorites = 352,
    Inbox = 353,
    // Of a location's row.
    RowMessage = 402,
    RowDoorBell = 404,
    RowPhoneCall = 405,
    RowUrgent = 406,
    RowClearStatus = 407,
    RowNotOccupied = 408,
    RowNote = 409,
    RowClearTag = 410,
    Close = 412,
    RowAddFavorite = 416,
    RowFavoriteOptions = 417,
    RowSetStatus = 418,
    RowSnippets = 419,
    // Of the own row.
    OwnClearStatus = 432,
    OwnOccupied = 433,
    OwnNote = 434,
    OwnClearTag = 435,
    OwnAddFavorite = 436,
    OwnRemoveFavorite = 437,
    OwnSetStatus = 438,
    // Whom a message goes to.
    SendTo = 450,
    ToEveryone = 451,
    ToFavorites = 452,
    ToRecipients = 453,
    FirstGroup = 460,
    FirstGroupCommand = 466,
    MyGroups = 470,
    // Of the message in front, and of all.
    OpenMessage = 480,
    PrintMessage = 481,
    DeleteMessage = 482,
    MessagesToTop = 483,
    ClearMessages = 484,
    FavoritesList = 705,
    Notes = 706,
    HomeSort = 760,
    HomeByColor = 761,
    HomeByName = 762,
    StatusSort = 765,
    StatusByTimeColor = 766,
    StatusByTimeName = 767,
    StatusByNameTime = 768,
    FavoritesSort = 770,
    FavoritesByColor = 771,
    FavoritesByName = 772,
    LargerFont = 800,
    SmallerFont = 801,
    SortOptions = 810
};

// What a command's caption, tip, picture, check or enabling may depend on. A bit each, so that a
// change refreshes the rows that it can have touched and no others.
namespace Touches {
enum : unsigned {
    Nothing = 0,
    Online = 1,
    OwnStatus = 2, // text and latches
    Room = 4,      // who sits here, and the staff tag
    DND = 8,
    QuickNames = 16,
    Row = 32, // which row is current, and what it holds
    View = 64,
    Preview = 128,
    Font = 256,
    Sort = 512,
    OnTop = 1024,
    Counts = 2048, // rows of the lists
    Offers = 4096, // what the user wants to be offered
    FavoriteSlots = 8192,
    Messages = 16384, // which one is in front, and how many there are
    Groups = 32768,
    All = ~0U
};
} // namespace Touches

// What the commands act upon.
struct CommandTargets {
    const OwnState& own;
    const Settings& settings;
    const Restrictions& admin;
    Windows& windows;
    Shell& shell;
    NetworkMC& network;
    LocalStatus& status;
    OwnPresence& presence;
    AlertEngine& alerts;
    LocationActions& actions;
    const Favorites& favorites;
    const Groups& groups;
    const Snippets& snippets;
    Inbox& inbox;
    Updates& updates;
    Timer& tmrExit;
};

// One use of a command, or a look at it.
struct CommandCall {
    Command command;
    const ReportRecord* row = nullptr; // of a location that it starts from; nullptr: none
    QString text{};                    // of the quick menu's text box
};

// What `Command::RowSnippets` is told when snippets are to be written; anything else composes a message.
inline const QString kAddSnippet = QStringLiteral("Add Snippet");

// Functions that are missing: enabled always, no check, caption, tip and picture as they stand.
struct CommandRow {
    using Targets = const CommandTargets&;
    using Call = const CommandCall&;

    Command command;
    const char* caption; // "&" marks the key
    const char* tip = "";
    const char* keys = ""; // that carry it out in the main window, say "Ctrl+Q"
    unsigned touches = Touches::Nothing;
    bool sends = false;               // of no use while nothing can be sent
    bool oncePerDoubleClick = false;  // of two clicks of the mouse the second is none
    std::optional<WindowId> window{}; // what it shows
    void (*act)(Targets, Call) = nullptr;
    bool (*offered)(Targets) = nullptr; // whether it is to be seen
    bool (*enabled)(Targets, Call) = nullptr;
    bool (*checked)(Targets, Call) = nullptr;
    QString (*captionNow)(Targets, Call) = nullptr;
    QString (*tipNow)(Targets, Call) = nullptr;
    int (*pictureNow)(Targets, Call) = nullptr; // a picture's number; else its own

    constexpr int number() const { return static_cast<int>(command); }
};

// Every command once, by rising number.
std::span<const CommandRow> commandTable();
// nullptr for a number that is no command.
const CommandRow* findCommand(int number);

} // namespace tessel
