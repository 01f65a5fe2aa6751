// Sets of colours for charts, by their names.
#pragma once

#include <QColor>
#include <QString>

#include <array>

namespace tessel {

// As they are offered.
inline constexpr std::array kChartPalettes{"Blue",         "Vibrant Pastel", "Vibrant",
                                           "Illustration", "Gray",           "Danville"};
inline const QString kUsualChartPalette = QStringLiteral("Danville");

// The name as it is offered; the usual palette's for one that is not.
QString chartPaletteNamed(const QString& name);

// The colour of a point of a chart, a few of them before they come again, in a shade that can be told from
// `back`. A name that is not offered gives the usual palette.
QColor chartColor(const QString& palette, int point, const QColor& back);

} // namespace tessel
