#include "controls/list/ReportText.h"

#include <gtest/gtest.h>

using namespace tessel;

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
