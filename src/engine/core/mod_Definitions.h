// Texts and numbers that more than one subsystem goes by.
#pragma once

#include "records/cReportRecords.h"

#include <QString>

#include <array>
#include <string_view>

namespace tessel {

inline const QString kProductName = QStringLiteral("Tessel Status");
inline constexpr char kVersion[] = TESSEL_VERSION; // major.minor.revision

// Separators, as bytes of the wire. There is no escaping: a value that holds one breaks its packet.
inline constexpr std::string_view kFieldMark = "R\x80";
inline constexpr std::string_view kPacketEnd = "<\x80P>";
inline constexpr std::string_view kValueMark = ".\x80.";
inline constexpr std::string_view kListMark = ":|:";
inline constexpr std::string_view kAuthorMark = ".A\x80";
// The same as text.
inline const QString ValueMark = QStringLiteral(".\u20AC.");
inline const QString ListMark = QStringLiteral(":|:");

// Marker of the packets that this program sends.
inline const QString kMarker = QStringLiteral("TSL2");
// Marker of a virtual location, which another kind of client sends.
inline const QString kVirtualMarker = QStringLiteral("TSL2V");

// What can be typed into a status, a note and the like, in either case: the marks that separate the
// values of packets and lists are not among these.
inline const QString kTypedCharacters =
    QStringLiteral("0123456789abcdefghijklmnopqrstuvwxyz `~!@#$%^*()-=_+[]\\{}|;':,./?&");

// What can be typed into the name of a location: everything on a keyboard but what separates the values
// of packets and lists.
inline const QString kNameCharacters =
    QStringLiteral("0123456789abcdefghijklmnopqrstuvwxyz `~!@#$%^*()-=_+[]{};',./?&"
                   "\u00E4\u00F6\u00FC\u00DF\u00E0\u00E1\u00E2\u00E3\u00E5\u00E6\u00E7\u00E8\u00E9"
                   "\u00EA\u00EB\u00EC\u00ED\u00EE\u00EF\u00F1\u00F2\u00F3\u00F4\u00F5\u00F8\u00F9"
                   "\u00FA\u00FB\u00FD\u00FF\u0153\u0161\u017E");

// Files of the data folder.
inline const QString kUserFile = QStringLiteral("user.cfg");
inline const QString kNetFile = QStringLiteral("net.cfg");
inline const QString kAdminFile = QStringLiteral("tsa.dat");
inline const QString kStatusFile = QStringLiteral("status.dat");
inline const QString kSharedFile = QStringLiteral("shared.dat");
inline const QString kSnippetFile = QStringLiteral("snippet.dat");
inline const QString kGroupsFile = QStringLiteral("groups.dat");
inline const QString kInboxFile = QStringLiteral("inbox.dat");
inline const QString kRecentsFile = QStringLiteral("recents.dat");
inline const QString kJournalEnding = QStringLiteral(".journal"); // of a list file's changes
inline const QString kErrorFile = QStringLiteral("error.txt");
inline const QString kOldErrorFile = QStringLiteral("error.txt.1");
inline const QString kMessageTestFile = QStringLiteral("mtest.txt");

// Colour tags 1 to 20; tag n stands at n - 1. A location without a tag has 41.
inline constexpr int kNoTag = 41;
inline constexpr std::array<Argb, 20> kTagColors{
    argb(245, 236, 3),   argb(24, 187, 2),   argb(254, 254, 254), argb(3, 232, 246),   argb(188, 186, 187),
    argb(172, 146, 111), argb(243, 161, 55), argb(252, 1, 1),     argb(251, 174, 225), argb(180, 143, 235),
    argb(175, 186, 20),  argb(17, 94, 50),   argb(53, 60, 214),   argb(8, 8, 8),       argb(108, 106, 104),
    argb(101, 69, 35),   argb(217, 106, 39), argb(161, 29, 29),   argb(246, 5, 209),   argb(109, 45, 187)};

// The ten staff tags; 0 for none.
inline constexpr int kFirstStaffTag = 30;
inline constexpr int kStaffTagCount = 10;
constexpr bool IsLocationTag(int tag) {
    return tag >= kFirstStaffTag && tag < kFirstStaffTag + kStaffTagCount;
}

inline constexpr Argb kWhite = argb(255, 255, 255);
inline constexpr Argb kYellow = argb(255, 255, 0);
inline constexpr Argb kRed = argb(255, 0, 0);
inline constexpr Argb kGreen = argb(0, 255, 0);
inline constexpr Argb kBlue = argb(0, 0, 255);
inline constexpr Argb kDarkGreen = argb(0, 128, 0);
inline constexpr Argb kPurple = argb(128, 0, 128);

} // namespace tessel
