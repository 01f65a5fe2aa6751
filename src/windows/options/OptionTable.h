// The settings that the options window shows, one row each.
#pragma once

#include "engine/core/mod_Settings.h"

#include <span>
#include <variant>

namespace tessel {

class Station;

// Pages by their place in the window.
enum class OptionsPage { General, QuickStatuses, Notices, Popups, Messages, Sounds, Network, Advanced };
inline constexpr int kOptionsPages = 8;

enum class OptionKind {
    Check,
    Number,
    Percent, // of 255
    Text,
    Font,
    Color
};

using SettingMember = std::variant<Setting<bool> Settings::*, Setting<std::int32_t> Settings::*,
                                   Setting<QString> Settings::*, Setting<Argb> Settings::*>;

struct OptionRow {
    OptionsPage page;
    const char* group;   // its heading; rows of one group stand together
    const char* control; // object name
    OptionKind kind;
    const char* caption;
    const char* tip;
    SettingMember setting;
    // Numbers: the least and the most; texts: the most characters.
    int least = 0;
    int most = 0;
    const char* unit = "";
    // Holds from the next start on, and the window says so.
    bool nextStart = false;
    // What else has to hear of the change; nullptr: whoever needs the value asks for it.
    void (*applied)(Station& station) = nullptr;
    // Words that a user may look for beside those of the caption and the tip.
    const char* words = "";
};

// Headings that a page adds buttons to.
inline constexpr char kSoftwareUpdates[] = "Software updates";
inline constexpr char kStatusesOfOthers[] = "Statuses of other locations";

std::span<const OptionRow> optionRows();

} // namespace tessel
