#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

const QColor kDarkText(0x1d, 0x1f, 0x21);
const QColor kLightText(0xe6, 0xe6, 0xe6);

int hueDistance(const QColor& a, const QColor& b) {
    const int distance = std::abs(a.hslHue() - b.hslHue());
    return std::min(distance, 360 - distance);
}

} // namespace

TEST(ReportColors, ContrastIsThatOfTheKnownPairs) {
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::white), 1.0, 0.001);
    EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

// Green names would be invisible on a white list, blue ones on a dark or a selected row.
TEST(ReportColors, AnyTextBecomesReadableOnAnyBackgroundAndKeepsItsHue) {
    const QColor texts[] = {{0, 255, 0}, {255, 0, 0},     {0, 0, 255},    {255, 255, 0},   {128, 128, 128},
                            {0, 0, 0},   {255, 255, 255}, {120, 60, 200}, {255, 240, 120}, {1, 2, 3}};
    const QColor backs[] = {{255, 255, 255}, {31, 33, 35},  {191, 214, 235}, {39, 63, 84},
                            {119, 119, 119}, {255, 215, 0}, {210, 30, 30},   {0, 0, 255}};
    for (const QColor& text : texts) {
        for (const QColor& back : backs) {
            for (const QColor& plain : {kDarkText, kLightText}) {
                const QColor shown = readableOn(text, back, plain);
                EXPECT_GE(contrastRatio(shown, back), kReadableContrast)
                    << text.name().toStdString() << " on " << back.name().toStdString();
                if (shown.hslSaturation() > 20 && text.hslSaturation() > 20 && shown.lightness() > 20 &&
                    shown.lightness() < 235) {
                    EXPECT_LE(hueDistance(shown, text), 4)
                        << text.name().toStdString() << " became " << shown.name().toStdString();
                }
            }
        }
    }
}

TEST(ReportColors, WhatIsReadableStaysExactlyAsChosen) {
    EXPECT_EQ(readableOn({0, 0, 255}, Qt::white, kDarkText), QColor(0, 0, 255));
    EXPECT_EQ(readableOn({0, 255, 0}, Qt::black, kLightText), QColor(0, 255, 0));
    EXPECT_EQ(textOn({255, 215, 0}), QColor(Qt::black));
    EXPECT_EQ(textOn({20, 60, 120}), QColor(Qt::white));
}

// A message with line breaks or of a megabyte would break its row or stop the window.
TEST(ReportText, IsOneLineOfBoundedLength) {
    EXPECT_EQ(singleLine(QStringLiteral("a\r\nb\tc")), "a  b c");
    const QChar hostile[] = {u'a', QChar(0), QChar(0x1b), QChar(0x2028), QChar(0x2029), u'b'};
    EXPECT_EQ(singleLine(QString(hostile, 6)), "a    b");
    const QString cut = singleLine(QString(1 << 20, u'x'));
    EXPECT_EQ(cut.size(), kShownChars + 1);
    EXPECT_EQ(cut.back(), QChar(0x2026));
    // A pair of surrogates is not torn apart.
    const QString pairs = QString(kShownChars - 1, u'x') + QString::fromUtf8("\xF0\x9F\x98\x80 and more");
    EXPECT_FALSE(singleLine(pairs).at(kShownChars - 1).isSurrogate());
}

TEST(ReportText, ATipIsNeverMarkup) {
    const QString tip = plainTip(QStringLiteral("<img src='x'><b>a</b> & b\nc"));
    EXPECT_FALSE(tip.contains("<b>"));
    EXPECT_FALSE(tip.contains("<img"));
    EXPECT_TRUE(tip.contains("&lt;b&gt;"));
    EXPECT_LT(plainTip(QString(1 << 20, u'x')).size(), 2 * kTipChars);
}
