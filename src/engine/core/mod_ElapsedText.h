// The text of a status with its age.
#pragma once

#include <QString>

namespace tessel {

enum class ElapsedForm {
    TimeOnly,  // ": 5min", ": 1hr:30min", "24Hrs+"
    WithText,  // the text and the time part
    WithSuffix // the text, the time part and " Elapsed Time"
};

// `start`: time-of-day text. The forms with text give the text alone up to `stimer` minutes of age,
// and after midnight, when the age is negative.
QString ElapsedText(const QString& start, const QString& text, ElapsedForm form, int nowSecond, int stimer);

// The text without the time part behind it.
QString withoutAge(const QString& text);

} // namespace tessel
