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
        if (step % 100 == 99) { // several in one sweep
            const QString end = QString::number(below(10));
            records.removeIf([&end](const ReportRecord& row) { return row.item(0).text.startsWith(end); });
            EXPECT_EQ(records.removeIf([](const ReportRecord&) { return false; }), 0);
        }
        for (int row = 0; row < records.count(); ++row) {
            ASSERT_EQ(records.at(row)->row(), row);
        }
        const QString wanted = key(below(kKeys));
        ASSERT_EQ(records.find(wanted), search(wanted)) << "step " << step << ", key " << qPrintable(wanted);
    }
    records.clear();
    EXPECT_EQ(records.find(key(1)), nullptr);
}
