// The letters of a list.
#pragma once

class QString;

namespace tessel {

class ReportView;

// The default of the settings is a font that this desktop may not have: then its own serves.
void setListFont(ReportView& list, const QString& family, int points, bool bold = false);

} // namespace tessel
