// What a chart shows: one row of named values. Engines fill it, controls draw it.
#pragma once

#include <QString>

#include <vector>

namespace tessel {

struct ChartPoint {
    QString name;        // as a table and a tip name it
    double value = 0;    // never negative
    QString text{};      // the value as it is read, with its unit
    QString mark{};      // short name below a bar; empty: none
    bool known = true;   // false: there is no value, which is not 0; `text` says so
    bool marked = false; // stands out as the one that the rest of the window is about
};

struct ChartSeries {
    QString title;        // one or two lines
    QString nameCaption;  // what the names are
    QString valueCaption; // what the values are
    std::vector<ChartPoint> points{};
};

// A point that only has a name and a value.
inline ChartPoint CreatePiePoint(const QString& name, double value, const QString& text) {
    return {.name = name, .value = value, .text = text};
}

} // namespace tessel
