// What the card of a message says, in the inbox and in the history.
#pragma once

#include "records/cReportRecords.h"

#include <QString>

namespace tessel {

// Pictures of what happened.
inline constexpr int kUrgentIcon = 0;
inline constexpr int kStatusIcon = 1;
inline constexpr int kMessageIcon = 9;
inline constexpr int kDoorBellIcon = 12;
inline constexpr int kPhoneCallIcon = 19;
inline constexpr int kReplyIcon = 61;

struct MessageHeading {
    QString lead;
    Argb nameColor = kNoColor; // of the name that stands behind the lead
    int icon = kMessageIcon;
};

// `type`: "0" a message, "1" a reply; any other has no heading.
MessageHeading ReceivedHeading(const QString& type, bool everyone);

// The beginning of a body's first part; what a reply answers stands behind it.
QString MessagePreview(const QString& body);

} // namespace tessel
