#include "engine/core/mod_TimeText.h"

namespace tessel {

namespace {

// Reads up to two digits at `pos`; -1 when there is none.
int readNumber(QStringView text, qsizetype& pos) {
    int value = -1;
    for (int digits = 0; digits < 2 && pos < text.size(); ++digits, ++pos) {
        const char16_t c = text[pos].unicode();
        if (c < u'0' || c > u'9') {
            break;
        }
        value = (value < 0 ? 0 : value * 10) + (c - u'0');
    }
    return value;
}

bool readColon(QStringView text, qsizetype& pos) {
    if (pos < text.size() && text[pos] == u':') {
        ++pos;
        return true;
    }
    return false;
}

} // namespace

QString timeText(int secondOfDay) {
    const int hour = secondOfDay / 3600 % 24;
    const int minute = secondOfDay / 60 % 60;
    const int second = secondOfDay % 60;
    const int shown = hour % 12 == 0 ? 12 : hour % 12;
    QString text;
    text.reserve(11);
    if (shown >= 10) {
        text += u'1';
    }
    text += QChar(u'0' + shown % 10);
    for (const int part : {minute, second}) {
        text += u':';
        text += QChar(u'0' + part / 10);
        text += QChar(u'0' + part % 10);
    }
    text += hour < 12 ? QLatin1String(" AM") : QLatin1String(" PM");
    return text;
}

QString dateText(QDate date) {
    if (!date.isValid()) {
        return {};
    }
    return QStringLiteral("%1/%2/%3").arg(date.month()).arg(date.day()).arg(date.year(), 4, 10, QChar(u'0'));
}

int parseTime(QStringView text) {
    text = text.trimmed();
    qsizetype pos = 0;
    int hour = readNumber(text, pos);
    if (hour < 0 || !readColon(text, pos)) {
        return -1;
    }
    const int minute = readNumber(text, pos);
    int second = 0;
    if (readColon(text, pos)) {
        second = readNumber(text, pos);
    }
    const QStringView half = text.sliced(pos).trimmed();
    if (!half.isEmpty()) {
        const bool afternoon = half.compare(u"PM", Qt::CaseInsensitive) == 0;
        if (hour < 1 || hour > 12 || (!afternoon && half.compare(u"AM", Qt::CaseInsensitive) != 0)) {
            return -1;
        }
        hour = hour % 12 + (afternoon ? 12 : 0);
    }
    if (hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
        return -1;
    }
    return (hour * 60 + minute) * 60 + second;
}

int minutesSince(QStringView startText, int nowSecond) {
    const int start = parseTime(startText);
    return start < 0 ? 0 : (nowSecond - start) / 60;
}

} // namespace tessel
