// Limits that keep a station's size and patience bounded, whatever the network or a file brings.
#pragma once

#include <cstddef>

namespace tessel {

// An INI file beyond this is neither read nor rewritten: what is in it stays as it is.
inline constexpr std::size_t kMaxIniBytes = 1U << 20U;
// A value is read into a buffer of 8192 characters, the last of them for the closing zero.
inline constexpr int kMaxIniValue = 8191;
// A log that has grown so much begins anew.
inline constexpr std::size_t kMaxLogBytes = 4U << 20U;
// One argument of a line in error.txt.
inline constexpr int kMaxLogArgument = 2000;
// Rows of the endpoint table. An office has some dozens; a flood of invented locations stops here.
inline constexpr int kMaxEndpoints = 20000;
// Characters of a received text that a row keeps: location, host, note, status and so on.
inline constexpr int kMaxRowText = 256;
// A presence block that a row keeps.
inline constexpr int kMaxPresenceText = 1024;
// What can be typed: the name of a location, and its note.
inline constexpr int kLongestLocation = 25;
inline constexpr int kLongestNote = 65;
// The Windows user name.
inline constexpr int kMaxUserName = 25;

} // namespace tessel
