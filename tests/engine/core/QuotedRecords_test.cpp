// The form of the list files.
#include "engine/core/mod_QuotedRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(QuotedRecords, FormOfTheFile) {
    EXPECT_EQ(writeQuotedRecords({}), "0\r\n");
    EXPECT_EQ(writeQuotedRecords({QString("a.\u20AC.b\r\nc"), "say \"x\"", "", QString("\u4e2d")}),
              "4\r\n\"a.\x80.b\r\nc\"\r\n\"say .|.x.|.\"\r\n\"\"\r\n\"?\"\r\n");
}

TEST(QuotedRecords, ReadsBackWhatItWrote) {
    const QStringList records{"plain",
                              "",
                              "\"",
                              "\"\"\"",
                              "two\r\nlines",
                              "comma, \"quote\"\n",
                              "4",
                              QString(QChar(0)) + "x",
                              QString(100000, u'w')};
    EXPECT_EQ(readQuotedRecords(writeQuotedRecords(records), 100), records);
    EXPECT_THAT(readQuotedRecords("1\r\n\"a.|.b\"\r\n", 100), ElementsAre("a\"b"));
    EXPECT_EQ(readQuotedRecords(writeQuotedRecords(records), 3).size(), 3);
}

TEST(QuotedRecords, TakesWhatStandsThere) {
    EXPECT_THAT(readQuotedRecords("", 9), IsEmpty());
    EXPECT_THAT(readQuotedRecords("3", 9), IsEmpty());
    EXPECT_THAT(readQuotedRecords("3\r\n", 9), IsEmpty());
    EXPECT_THAT(readQuotedRecords("9\r\n\"one\"\r\n\"two", 9), ElementsAre("one")) << "cut off";
    EXPECT_THAT(readQuotedRecords("1\n\"one\"\n\"two\"", 9), ElementsAre("one", "two")) << "other line ends";
    EXPECT_THAT(readQuotedRecords("\"one\"\r\n", 9), ElementsAre("one")) << "the count line is gone";
    EXPECT_THAT(readQuotedRecords("1 \"x\"\r\n\"one\" junk \"two\"", 9), ElementsAre("one", "two"));
}
