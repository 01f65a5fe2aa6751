#include "engine/core/mod_ElapsedText.h"

#include "engine/core/mod_TimeText.h"

#include <QRegularExpression>

namespace tessel {

namespace {
QString timePart(int minutes) {
    const int hours = minutes / 60;
    const int rest = minutes % 60;
    if (hours > 24) {
        return QStringLiteral("24Hrs+");
    }
    if (hours > 0) {
        return QStringLiteral(": %1hr:%2min").arg(hours).arg(rest);
    }
    return QStringLiteral(": %1min").arg(rest);
}
} // namespace

QString ElapsedText(const QString& start, const QString& text, ElapsedForm form, int nowSecond, int stimer) {
    const int minutes = minutesSince(start, nowSecond);
    if (form == ElapsedForm::TimeOnly) {
        return timePart(minutes);
    }
    if (minutes <= stimer) {
        return text;
    }
    return text + timePart(minutes) +
           (form == ElapsedForm::WithSuffix ? QLatin1String(" Elapsed Time") : QLatin1String());
}

QString withoutAge(const QString& text) {
    static const QRegularExpression age(QStringLiteral("(?:: (?:\\d+hr:)?\\d+min|24Hrs\\+)$"));
    const QRegularExpressionMatch match = age.match(text);
    return match.hasMatch() ? text.first(match.capturedStart()) : text;
}

} // namespace tessel
