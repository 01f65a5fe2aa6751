// Times and dates as text: how they travel in packets and stand in files, whatever the desktop's
// own formats are.
#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <QStringView>

namespace tessel {

// "h:mm:ss AM" for a second of the day, 0 to 86399.
QString timeText(int secondOfDay);

// "M/d/yyyy"; empty for an invalid date.
QString dateText(QDate date);

// The second of the day that a text tells, -1 when it is no time. Takes "h:mm:ss AM", "h:mm AM" and
// the 24-hour forms "H:mm:ss" and "H:mm", in any case and with blanks around.
int parseTime(QStringView text);

// Whole minutes from `startText` to `nowSecond`, towards zero. Times carry no date, so after
// midnight the result is negative, down to -1439. 0 when `startText` is no time.
int minutesSince(QStringView startText, int nowSecond);

} // namespace tessel
