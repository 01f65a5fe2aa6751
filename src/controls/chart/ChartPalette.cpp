#include "controls/chart/ChartPalette.h"

#include "controls/list/ReportColors.h"

namespace tessel {

namespace {

constexpr std::size_t kColors = 9;
// Least contrast at which an area stands out from what it lies on.
constexpr double kAreaContrast = 1.7;

// Neighbours differ in lightness too, for eyes that do not tell all hues apart.
constexpr std::array<std::array<QRgb, kColors>, kChartPalettes.size()> kSets{{
    {0xFF1F6FB2, 0xFF8EC1EA, 0xFF0E3F6B, 0xFF5AA0D8, 0xFFB9DBF5, 0xFF2C86CC, 0xFF174F80, 0xFF74B2E2,
     0xFF3F95B8},
    {0xFF7FB3E6, 0xFFF7B58A, 0xFF8FD3A4, 0xFFE59AA8, 0xFFC3A8E6, 0xFFF2D878, 0xFF86D1D1, 0xFFD9B38C,
     0xFFB6C2CE},
    {0xFF1E78E6, 0xFFF58A07, 0xFF16A34A, 0xFFE11D48, 0xFF8B3FD9, 0xFFEAB308, 0xFF06A5B8, 0xFFB45309,
     0xFF64748B},
    {0xFF4C7A9F, 0xFFD08C5B, 0xFF6E9B6A, 0xFFB5606A, 0xFF7D6A9A, 0xFFC9AE5D, 0xFF5B9A9A, 0xFF8C6B4F,
     0xFF808B96},
    {0xFF6B7280, 0xFFB8BDC6, 0xFF3F4650, 0xFF949BA6, 0xFFD3D7DD, 0xFF7F8793, 0xFF545C67, 0xFFA6ACB6,
     0xFF888F9A},
    {0xFF2F6DA8, 0xFFE0872F, 0xFF4F9D5B, 0xFFC8453B, 0xFF7C5CA8, 0xFFD9B13B, 0xFF3A9AA1, 0xFF8D5B3F,
     0xFF7A8794},
}};

std::size_t indexOf(const QString& palette) {
    std::size_t usual = 0;
    for (std::size_t i = 0; i < kChartPalettes.size(); ++i) {
        const QLatin1String name(kChartPalettes[i]);
        if (palette.compare(name, Qt::CaseInsensitive) == 0) {
            return i;
        }
        usual = name == kUsualChartPalette ? i : usual;
    }
    return usual;
}

} // namespace

QString chartPaletteNamed(const QString& name) {
    return QString::fromLatin1(kChartPalettes[indexOf(name)]);
}

QColor chartColor(const QString& palette, int point, const QColor& back) {
    const QColor wanted(kSets[indexOf(palette)][static_cast<std::size_t>(point) % kColors]);
    const QColor away = textOn(back);
    QColor found = wanted;
    for (int tenth = 1; tenth < 10 && contrastRatio(found, back) < kAreaContrast; ++tenth) {
        found = blend(wanted, away, tenth / 10.0);
    }
    return found;
}

} // namespace tessel
