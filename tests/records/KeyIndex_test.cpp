#include "records/cReportRecords.h"

#include <gtest/gtest.h>

#include <random>

using namespace tessel;

// An entry lost when another one goes would leave a location that no packet reaches any more.
TEST(KeyIndex, FindsWhatASearchOfAllRowsFindsThroughManyChanges) {
    ReportRecords records(0);
    std::mt19937 random(3);
    const auto below = [&random](int limit) {
        return std::uniform_int_distribution<int>(0, limit - 1)(random);
    };
    constexpr int kKeys = 120; // few enough for doubles, and some longer than a record keeps inside
    const auto key = [](int number) {
        return QString::number(number) +
               (number % 3 == 0 ? QStringLiteral("-a key of some length") : QString());
    };
    const auto search = [&records](const QString& wanted) -> const ReportRecord* {
        for (const auto& row : records.rows()) {
            if (row->item(0).text == wanted) {
                return row.get();
            }
        }
        return nullptr;
    };
    for (int step = 0; step < 4000; ++step) {
        if (below(100) < 52 || records.count() == 0) {
            auto row = std::make_shared<ReportRecord>(1);
            row->item(0).text = key(below(kKeys));
            records.insert(below(records.count() + 1), std::move(row));
        } else {
            records.remove(below(records.count()));
        }
        const QString wanted = key(below(kKeys));
        ASSERT_EQ(records.find(wanted), search(wanted)) << "step " << step << ", key " << qPrintable(wanted);
    }
    records.clear();
    EXPECT_EQ(records.find(key(1)), nullptr);
}

// Items beyond those that a record keeps inside, and a key that is empty.
TEST(KeyIndex, RowsOfAnyWidthAndKeyOfAnyLength) {
    ReportRecords records(12);
    for (const QString& key : {QString(), QStringLiteral("123AB456CDE7"), QStringLiteral("123AB456CDE78")}) {
        auto row = std::make_shared<ReportRecord>(15);
        for (int item = 0; item < row->itemCount(); ++item) {
            row->item(item).value = item;
        }
        row->item(12).text = key;
        records.append(row);
        ASSERT_EQ(records.find(key), row.get());
        EXPECT_EQ(row->item(9).value, 9);
        EXPECT_EQ(row->item(10).value, 10);
        EXPECT_EQ(row->item(14).value, 14);
    }
    EXPECT_EQ(records.find(u"123AB456CDE"), nullptr);
}
