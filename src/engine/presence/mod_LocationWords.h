// What a row of the location lists says in words, to those who search it and those who hear it.
#pragma once

#include <QString>

namespace tessel {

class ReportRecord;

// The colour of a location tag, 1 to 20, by name; empty for any other number.
QString ColorTagName(int tag);
// What the picture of a staff tag shows; empty for any other number.
QString StaffTagName(int tag);

// How many characters at the end of the row's status are its age.
int AgeLength(const ReportRecord& row);

// Words for which the row is found beside what it shows: "free", "occupied", "do not disturb", the name
// of its staff tag, the patient's name, "status:" before each word of its status.
QString SearchWords(const ReportRecord& row);

// What the pictures of a row say: of the slot at its beginning, of the staff tag.
QString SpokenState(const ReportRecord& row);
QString SpokenStaffTag(const ReportRecord& row);

} // namespace tessel
