#include "records/cReportRecords.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr int kKey = 0;
constexpr int kText = 1;

ReportRecordPtr record(const char* key, const char* text = "") {
    auto made = std::make_shared<ReportRecord>(2);
    made->item(kKey).text = QString::fromLatin1(key);
    made->item(kText).text = QString::fromLatin1(text);
    return made;
}

QString found(const ReportRecords& records, QStringView key) {
    const ReportRecord* row = records.find(key);
    return row == nullptr ? QStringLiteral("none") : row->item(kText).text;
}

void expectRowsInStep(const ReportRecords& records) {
    for (int row = 0; row < records.count(); ++row) {
        EXPECT_EQ(records.at(row)->row(), row);
    }
}

} // namespace

// A packet would change the wrong location, or none.
TEST(ReportRecords, FindsTheFirstOfDoubleKeysThroughInsertsAndRemovals) {
    ReportRecords records(kKey);
    records.append(record("a", "first"));
    records.append(record("b", "other"));
    records.append(record("a", "second"));
    EXPECT_EQ(found(records, u"a"), "first");
    EXPECT_EQ(found(records, u"A"), "none");

    records.insert(0, record("a", "before"));
    EXPECT_EQ(found(records, u"a"), "before");
    expectRowsInStep(records);

    records.remove(0);
    EXPECT_EQ(found(records, u"a"), "first");
    records.remove(0);
    EXPECT_EQ(found(records, u"a"), "second");
    records.remove(1);
    EXPECT_EQ(found(records, u"a"), "none");
    EXPECT_EQ(found(records, u"b"), "other");
    expectRowsInStep(records);
}

// Old history rows would come back as hits of a search, or what remains be lost to it.
TEST(ReportRecords, RemovesManyInOneSweepAndKeepsOrderAndIndex) {
    ReportRecords records(kKey);
    for (int i = 0; i < 100; ++i) {
        records.append(record(QByteArray::number(i).constData(), i % 3 == 0 ? "gone" : "kept"));
    }
    const ReportRecordPtr dropped = records.at(3);
    int told = 0;
    QObject::connect(&records, &ReportRecords::changed, [&told] { ++told; });
    const int removed =
        records.removeIf([](const ReportRecord& row) { return row.item(kText).text == "gone"; });
    EXPECT_EQ(removed, 34);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(records.count(), 66);
    expectRowsInStep(records);
    EXPECT_EQ(dropped->row(), -1);
    EXPECT_EQ(found(records, u"3"), "none");
    EXPECT_EQ(records.find(u"98")->row(), 65);
    for (int row = 1; row < records.count(); ++row) {
        EXPECT_LT(records.at(row - 1)->item(kKey).text.toInt(), records.at(row)->item(kKey).text.toInt());
    }

    EXPECT_EQ(records.removeIf([](const ReportRecord&) { return false; }), 0);
    EXPECT_EQ(told, 1) << "nothing went, nothing to tell";

    records.clear();
    EXPECT_EQ(found(records, u"98"), "none");
}

// A list on screen would go stale, or be built anew for every change of a text.
TEST(ReportRecords, RevisionsTellWhatChanged) {
    ReportRecords records(kKey);
    records.append(record("a"));
    records.append(record("b"));
    const auto structure = records.structureRevision();
    const auto before = records.revision();

    records.redraw(*records.at(1));
    EXPECT_EQ(records.structureRevision(), structure);
    EXPECT_GT(records.revision(), before);
    EXPECT_GT(records.at(1)->revision(), before);
    EXPECT_LE(records.at(0)->revision(), before);

    records.redrawAll();
    EXPECT_EQ(records.at(0)->revision(), records.revision());

    records.insert(0, record("c"));
    EXPECT_GT(records.structureRevision(), structure);
    EXPECT_EQ(records.at(0)->revision(), records.revision());
    const auto inserted = records.structureRevision();
    records.remove(0);
    EXPECT_GT(records.structureRevision(), inserted);
}
