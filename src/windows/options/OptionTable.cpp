#include "windows/options/OptionTable.h"

#include "engine/station.h"

namespace tessel {

namespace {

using Page = OptionsPage;
using Kind = OptionKind;
using S = Settings;

constexpr char kOwn[] = "This location";
constexpr char kWindow[] = "Main window";
constexpr char kLists[] = "Lists of locations";
constexpr char kAlerts[] = "Alerts";
constexpr char kQuickAlerts[] = "Quick alerts";
constexpr char kPopups[] = "All popups";
constexpr char kStay[] = "How long they stay";
constexpr char kArriving[] = "Arriving messages";
constexpr char kWriting[] = "Writing";
constexpr char kInbox[] = "Inbox";
constexpr char kSounds[] = "Sounds";
constexpr char kHistory[] = "Notification history";
constexpr char kCards[] = "Colors of the notifications";
constexpr char kNetwork[] = "Packets";
constexpr char kScreens[] = "Screens";
constexpr char kSupport[] = "Support";

constexpr int kDayMinutes = 1440;

void onTop(Station& s) {
    emit s.shell.onTopChanged();
}
void inboxTop(Station& s) {
    emit s.inbox.ensureVisibleChanged();
}
void fonts(Station& s) {
    emit s.shell.reportFontChanged();
}
void doorbell(Station& s) {
    s.shell.setDoorbellOffered(s.settings.Settings_DBNAV());
}
void offers(Station& s) {
    emit s.shell.offersChanged();
}
void announce(Station& s) {
    s.network.AnnounceAnew();
}

const OptionRow kRows[] = {
    {Page::General, kOwn, "chkShowUser", Kind::Check, "Show this location in the lists",
     "Whether your own row stands among the other locations", &S::Settings_SHOWUSER, 0, 0, "", false,
     announce, "own row self"},
    {Page::General, kOwn, "chkStaffTags", Kind::Check, "Use staff tags",
     "Offers the ten staff tags in the ribbon and wherever a status is set", &S::Settings_SST, 0, 0, "",
     false, offers, "badge stethoscope"},
    {Page::General, kWindow, "chkOnTop", Kind::Check, "Keep the windows above all others",
     "The main window stays in sight while you work in another program", &S::Settings_ONTOP, 0, 0, "", false,
     onTop, "always on top"},
    {Page::General, kWindow, "chkExitOnClose", Kind::Check, "End the program when its window is closed",
     "Otherwise the window goes to the tray, and you stay reachable", &S::Settings_EOC, 0, 0, "", false,
     nullptr, "exit quit shutdown cross"},
    {Page::General, kWindow, "chkDoorBell_Nav", Kind::Check, "Show the doorbell in the status bar",
     "For a front desk that rings many rooms", &S::Settings_DBNAV, 0, 0, "", false, doorbell, "bell ring"},
    {Page::General, kLists, "cmbListFont", Kind::Font, "Font", "The letters of the lists of locations",
     &S::Fonts_EVF, 0, 0, "", false, fonts, "letters typeface"},
    {Page::General, kLists, "updListFontSize", Kind::Number, "Size of the letters",
     "The same as the two buttons in the status bar", &S::Fonts_EVFS, Shell::kSmallestFont,
     Shell::kLargestFont, " points", false, fonts, "font larger smaller"},
    {Page::General, kLists, "chkListBold", Kind::Check, "Bold letters", "Shows the lists in bold letters",
     &S::Fonts_EVFB, 0, 0, "", false, fonts, "font weight"},
    {Page::General, kLists, "updStatusTime", Kind::Number, "Show the age of a status after",
     "Younger statuses show no time", &S::Settings_STIMER, 0, kDayMinutes, " min", false, nullptr,
     "elapsed time"},

    {Page::General, kSoftwareUpdates, "chkUpdates", Kind::Check, "Look for updates by itself",
     "Half a minute after the start of the program", &S::Settings_UPD, 0, 0, "", true, nullptr,
     "software version"},

    {Page::Notices, kStatusesOfOthers, "chkNotifyStatus", Kind::Check, "Show a popup when a status changes",
     "A small note that does not take the keyboard from you", &S::Settings_SNP, 0, 0, "", false, nullptr,
     "notify"},
    {Page::Notices, kStatusesOfOthers, "chkNotifyStatusTone", Kind::Check,
     "Play a tone when a status changes",
     "The tone of the shared status or of the favorite, or else the usual one", &S::Settings_SNT, 0, 0, "",
     false, nullptr, "notify sound"},
    {Page::Notices, kStatusesOfOthers, "chkNotifyFav", Kind::Check, "Only for my favorites",
     "Other locations change their status without a popup or tone", &S::Settings_SNF, 0, 0, "", false,
     nullptr, "notify"},
    {Page::Notices, kAlerts, "chkNotify_DoorBell", Kind::Check, "Show a popup when the doorbell rings",
     "The tone and the bar of the alert come in any case", &S::Settings_DNP, 0, 0, "", false, nullptr,
     "notify bell"},
    {Page::Notices, kAlerts, "chkNotify_PhoneCall", Kind::Check, "Show a popup for a phone call",
     "The tone and the bar of the alert come in any case", &S::Settings_PNP, 0, 0, "", false, nullptr,
     "notify"},
    {Page::Notices, kAlerts, "chkNotify_Urgent", Kind::Check, "Show a popup for an urgent alert",
     "The tone and the bar of the alert come in any case", &S::Settings_UNP, 0, 0, "", false, nullptr,
     "notify"},
    {Page::Notices, kAlerts, "updAlertBar", Kind::Number, "Keep the bar of an alert for",
     "The colored bar in the main window, unless you close it before", &S::Settings_ABPT, 1, kDayMinutes,
     " min", false, nullptr, "time"},
    {Page::Notices, kAlerts, "chkShake", Kind::Check, "Shake the main window on every alert",
     "For a screen that is watched from afar", &S::Settings_DBB, 0, 0, "", false, nullptr, "move"},
    {Page::Notices, kAlerts, "updShake", Kind::Number, "How long it shakes", "The number of small moves",
     &S::Settings_DBBL, 1, 500, " moves", false, nullptr, "shake"},
    {Page::Notices, kQuickAlerts, "chkEnableDoorbell", Kind::Check, "Offer the doorbell in the menu of a row",
     "Right click on a location, write a few words and send them", &S::QuickMenu_AlertDoorBell, 0, 0, "",
     false, nullptr, "bell"},
    {Page::Notices, kQuickAlerts, "chkEnablePhone", Kind::Check, "Offer the phone call in the menu of a row",
     "Right click on a location, write a few words and send them", &S::QuickMenu_AlertPhone, 0, 0, "", false,
     nullptr, ""},
    {Page::Notices, kQuickAlerts, "chkEnableUrgent", Kind::Check,
     "Offer the urgent alert in the menu of a row",
     "Right click on a location, write a few words and send them", &S::QuickMenu_AlertUrgent, 0, 0, "", false,
     nullptr, ""},
    {Page::Notices, kQuickAlerts, "txtGroupCommand", Kind::Text, "Sign for all of one color",
     "A quick alert that begins with this goes to all locations of the row's color",
     &S::QuickMenu_AlertGroupCommand, 0, 8, "", false, nullptr, "group prefix g:"},

    {Page::Popups, kPopups, "chkAllowPopupsToMove", Kind::Check, "Popups may be moved with the mouse",
     "Takes effect with the next popup", &S::Settings_SNPM, 0, 0, "", false, nullptr, "drag"},
    {Page::Popups, kPopups, "chkPopupAlertSaveLocation", Kind::Check, "Popups return to where I moved them",
     "Otherwise they come up in the lower right corner", &S::Settings_SNPMS, 0, 0, "", false, nullptr,
     "place position remember"},
    {Page::Popups, kPopups, "sldOpacity", Kind::Percent, "Opacity",
     "How much of what lies behind a popup shines through", &S::Settings_SNPTP, 51, 255, "", false, nullptr,
     "transparent"},
    {Page::Popups, kStay, "updAlertPopup", Kind::Number, "Alerts", "A popup that you click goes at once",
     &S::Settings_ANPTM, 1, kDayMinutes, " min", false, nullptr, "time stay"},
    {Page::Popups, kStay, "updStatusPopup", Kind::Number, "Statuses", "A popup that you click goes at once",
     &S::Settings_SNPT, 1, 86400, " s", false, nullptr, "time stay"},
    {Page::Popups, kStay, "updMessagePopup", Kind::Number, "Messages", "A popup that you click goes at once",
     &S::Settings_MNPTM, 1, kDayMinutes, " min", false, nullptr, "time stay"},

    {Page::Messages, kArriving, "chkMessagePopup", Kind::Check, "Show a popup when a message arrives",
     "A click on it opens the message", &S::Settings_MNP, 0, 0, "", false, nullptr, "notify"},
    {Page::Messages, kArriving, "chkMessageTone", Kind::Check, "Play a tone when a message arrives",
     "One tone for messages to you, another for messages to everyone", &S::Settings_MNT, 0, 0, "", false,
     nullptr, "notify sound"},
    {Page::Messages, kArriving, "chkMsgPrivate", Kind::Check, "Hide the text of messages in popups",
     "The popup says \"Message Alert\" alone: for screens that patients can see", &S::Settings_MPP, 0, 0, "",
     false, nullptr, "private privacy"},
    {Page::Messages, kArriving, "updPopupFont", Kind::Number, "Size of the letters in the popup",
     "Takes effect with the next message", &S::Settings_MNPFS, 6, Popups::kLargestFont, " points", false,
     nullptr, "font"},
    {Page::Messages, kWriting, "chkEnterSends", Kind::Check, "Enter sends a message",
     "Otherwise Enter begins a new line, and Ctrl+Enter sends", &S::Settings_MSOE, 0, 0, "", false, nullptr,
     "key return"},
    {Page::Messages, kInbox, "chkInboxTop", Kind::Check, "Scroll to the newest message when one arrives",
     "Otherwise the inbox stays where you read", &S::Messages_EV, 0, 0, "", false, inboxTop, "visible"},
    {Page::Messages, kInbox, "updInboxCount", Kind::Number, "Messages kept",
     "The newest ones are kept when the program ends", &S::Messages_SAVE_CNT, 1, 20000, "", false, nullptr,
     "save count"},
    {Page::Messages, kInbox, "cmbMessageFont", Kind::Font, "Font",
     "The letters of the inbox and of the notifications", &S::Fonts_MVF, 0, 0, "", true, nullptr,
     "letters typeface"},
    {Page::Messages, kInbox, "updMessageFontSize", Kind::Number, "Size of the letters",
     "The letters of the inbox and of the notifications", &S::Fonts_MVFS, Shell::kSmallestFont,
     Shell::kLargestFont, " points", true, nullptr, "font"},
    {Page::Messages, kInbox, "cmdTimeColor", Kind::Color, "Color of the time",
     "Of messages and notifications", &S::Messages_MSG_TS, 0, 0, "", true, nullptr, "stamp colour"},
    {Page::Messages, kInbox, "cmdMessageColor", Kind::Color, "Color of the border",
     "Of messages in the inbox", &S::Messages_MSG_B, 0, 0, "", true, nullptr, "frame colour"},

    {Page::Sounds, kSounds, "chkSoundCard", Kind::Check, "This computer has speakers",
     "Otherwise every tone is a plain beep", &S::Sound_SC, 0, 0, "", false, nullptr, "sound card mute"},
    {Page::Sounds, kSounds, "chkPlayStartupTone", Kind::Check, "Play a tone when the program starts",
     "So that you hear that sounds work", &S::Sound_ST, 0, 0, "", true, nullptr, "startup"},
    {Page::Sounds, kSounds, "updBeepTone", Kind::Number, "Pitch of the beep", "Without speakers",
     &S::Sound_BT, 37, 20000, " Hz", false, nullptr, "frequency"},
    {Page::Sounds, kSounds, "updBeepLength", Kind::Number, "Length of the beep", "Without speakers",
     &S::Sound_BD, 10, 5000, " ms", false, nullptr, "duration"},
    {Page::Sounds, kHistory, "chkSaveRecents", Kind::Check, "Keep the notifications when the program ends",
     "Otherwise the list begins anew with each start", &S::Recents_SAVE, 0, 0, "", false, nullptr,
     "save recents"},
    {Page::Sounds, kHistory, "updRecentsCount", Kind::Number, "Notifications kept",
     "The newest ones are kept when the program ends", &S::Recents_SAVE_CNT, 1, 100000, "", false, nullptr,
     "save count recents"},
    {Page::Sounds, kHistory, "chkRecentsTop", Kind::Check, "Scroll to top when receiving a notification",
     "Otherwise the list stays where you read", &S::Recents_EV, 0, 0, "", false, nullptr, "visible"},
    {Page::Sounds, kCards, "cmdColorDoorBell", Kind::Color, "Doorbell", "Border of the card",
     &S::Recents_DB_B, 0, 0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorDoorBellAll", Kind::Color, "Doorbell to everyone", "Border of the card",
     &S::Recents_DBG_B, 0, 0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorPhone", Kind::Color, "Phone call", "Border of the card", &S::Recents_PC_B,
     0, 0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorStatus", Kind::Color, "Status", "Border of the card", &S::Recents_ST_B, 0,
     0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorCleared", Kind::Color, "Status cleared", "Border of the card",
     &S::Recents_STC_B, 0, 0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorMessage", Kind::Color, "Message", "Border of the card", &S::Recents_MSG_B,
     0, 0, "", true, nullptr, "colour"},
    {Page::Sounds, kCards, "cmdColorOccupied", Kind::Color, "Location occupied", "Border of the card",
     &S::Recents_LU_B, 0, 0, "", true, nullptr, "colour"},

    {Page::Advanced, kNetwork, "chkEncode", Kind::Check, "Scramble what is sent",
     "Must be the same at all locations: a location with another choice reads nothing", &S::Advanced_ENCODE,
     0, 0, "", false, nullptr, "encode encrypt"},
    {Page::Advanced, kScreens, "chkMultipleMonitors", Kind::Check,
     "Windows return to the screen they were on", "Otherwise all open on the main screen",
     &S::Advanced_MultipleMonitors, 0, 0, "", false, nullptr, "monitors"},
    {Page::Advanced, kScreens, "cmdFilterColor", Kind::Color, "Color of the search box",
     "Once it is chosen the box has it with and without a search", &S::Advanced_FilterColor, 0, 0, "", true,
     nullptr, "filter colour"},
    {Page::Advanced, kSupport, "chkTestMode", Kind::Check, "Write more into the log",
     "For whoever helps you: lines about messages that arrive twice or empty", &S::Settings_TestMode, 0, 0,
     "", false, nullptr, "test mode debug error.txt"},
};

} // namespace

std::span<const OptionRow> optionRows() {
    return kRows;
}

} // namespace tessel
