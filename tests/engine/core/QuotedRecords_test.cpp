// The form of the list files.
#include "engine/core/mod_QuotedRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
QStringList records(QByteArrayView bytes, int most = 9) {
    return readQuotedRecords(bytes, most).records;
}
} // namespace

TEST(QuotedRecords, FormOfTheFile) {
    EXPECT_EQ(writeQuotedRecords({}), "0\r\n");
    EXPECT_EQ(writeQuotedRecords({QString("a.\u20AC.b\r\nc"), "say \"x\"", "", QString("\u4e2d")}),
              "4\r\n\"a.\x80.b\r\nc\"\r\n\"say .|.x.|.\"\r\n\"\"\r\n\"?\"\r\n");
}

TEST(QuotedRecords, TakesWhatStandsThere) {
    EXPECT_THAT(records(""), IsEmpty());
    EXPECT_THAT(records("3"), IsEmpty());
    EXPECT_THAT(records("3\r\n"), IsEmpty());
    EXPECT_THAT(records("0\r\n\"one\"\r\n"), IsEmpty());
    EXPECT_THAT(records("1\r\n\"one\"\r\n\"two\"\r\n"), ElementsAre("one")) << "the count is a bound";
    EXPECT_THAT(records("9\r\n\"one\"\r\n\"t\r\no\"\r\n"), ElementsAre("one", "t\r\no"));
    EXPECT_THAT(records("2\n\"one\"\n\"two\""), ElementsAre("one", "two")) << "other line ends";
    EXPECT_THAT(records("\"one\"\r\n"), ElementsAre("one")) << "the count line is gone";
    EXPECT_THAT(records("1 \"x\"\r\n\"one\" junk \"two\""), ElementsAre("one", "two"));
    EXPECT_THAT(records("3\r\n\"one\"\r\n\"two\"\r\n\"three\"", 2), ElementsAre("one", "two"));

    const QuotedRecords cut = readQuotedRecords("9\r\n\"one\"\r\n\"two\r\n", 9);
    EXPECT_THAT(cut.records, ElementsAre("one"));
    EXPECT_EQ(cut.unclosed, "\"two\r\n") << "nobody else has it";
    const QuotedRecords torn = readQuotedRecords("9\r\n\"one\r\n\"two\"\r\n\"\"\r\n\"a\r\n\"\r\n\"x", 9);
    EXPECT_THAT(torn.records, ElementsAre("two", "", "a\r\n")) << "one torn record costs itself alone";
    EXPECT_EQ(torn.unclosed, "\"one\r\n\"x");
}

TEST(QuotedRecords, ValuesComeBackAsTheyWent) {
    for (const QStringList& values :
         {QStringList{"plain", "", "two\r\nlines"}, QStringList{"\"", "\"\"\"", "say \"x\""},
          QStringList{"ends in .|", "x.|", ".|"}, QStringList{QStringLiteral("\"\u20AC."), "y", "z"},
          QStringList{QString(QChar(0)) + "x", QString(100000, u'w'), "4"}}) {
        const QString record = joinRecord(values);
        EXPECT_EQ(splitRecord(records(writeQuotedRecords({record})).value(0), 3), values);
        EXPECT_EQ(splitRecord(record, 3), values);
    }
    EXPECT_THAT(splitRecord(joinRecord({QStringLiteral("a.\u20AC.b"), QStringLiteral("5.\u20AC")}), 2),
                ElementsAre("a b", QStringLiteral("5.\u20AC ")));
    EXPECT_THAT(splitRecord(joinRecord({"a", "b"}), 3), ElementsAre("a", "b", ""));
    EXPECT_THAT(splitRecord(joinRecord({"a", "b"}), 1), ElementsAre("a"));
    EXPECT_EQ(plainRecord(".|.a.|.b"), "\"a\"b");
}
