#include "report_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace tessel;

namespace {

void add(ReportList& list, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        list.records.append(listRecord(QString::fromUtf8(name), QString::fromUtf8(name)));
    }
    list.control.syncNow();
}

} // namespace

// "Room 12" before "Room 7", or "anna" behind "Zoe": nobody finds a name in such a list.
TEST(ReportOrder, SortsTextsAsPeopleDo) {
    ReportList list;
    add(list, {"room 12", "Zoe", "anna", "Room 7", "Émile", "Bob", "Fred"});
    EXPECT_EQ(list.names(), QStringList({"room 12", "Zoe", "anna", "Room 7", "Émile", "Bob", "Fred"}));
    list.control.setSortKeys({{kName}});
    list.control.syncNow();
    EXPECT_EQ(list.names(), QStringList({"anna", "Bob", "Émile", "Fred", "Room 7", "room 12", "Zoe"}));
    list.control.setSortKeys({{kName, false, false}});
    list.control.syncNow();
    EXPECT_EQ(list.names(), QStringList({"Zoe", "room 12", "Room 7", "Fred", "Émile", "Bob", "anna"}));
}

// The user's own row would sink among the others.
TEST(ReportOrder, PinnedRowsStandAboveWhateverTheOrder) {
    ReportList list;
    add(list, {"b", "own", "a"});
    list.records.at(1)->pinned = true;
    list.records.redraw(*list.records.at(1));
    list.control.syncNow();
    EXPECT_EQ(list.names(), QStringList({"own", "b", "a"}));
    for (const bool ascending : {true, false}) {
        list.control.setSortKeys({{kName, false, ascending}});
        list.control.syncNow();
        EXPECT_EQ(list.keyAt(0), "own");
    }
    EXPECT_EQ(list.names(), QStringList({"own", "b", "a"}));
}

TEST(ReportOrder, TheFilterWantsEveryWordInAShownTextOrThePreview) {
    ReportList list;
    list.records.append(listRecord("hidden-key", "Anna Berger", "Back at THREE"));
    list.records.append(listRecord("2", "Bob", "three"));
    list.records.append(listRecord("3", "Carl"));
    list.records.at(2)->preview = "anna asked for three\nthings";
    const auto shown = [&list](const char* text) {
        list.control.setFilterText(QString::fromUtf8(text));
        list.control.syncNow();
        return list.names().join(u',').toStdString();
    };
    EXPECT_EQ(shown("three"), "Anna Berger,Bob,Carl");
    EXPECT_EQ(shown("  ThReE\t anna "), "Anna Berger,Carl");
    EXPECT_EQ(shown("hidden"), "") << "a column that is not shown is not searched";
    EXPECT_EQ(shown("bergerback"), "") << "texts of two cells are not one text";
    EXPECT_EQ(shown("things"), "Carl");
    EXPECT_EQ(shown("   "), "Anna Berger,Bob,Carl");

    // What changes under a standing filter comes and goes with it.
    shown("bob");
    list.records.at(2)->item(kName).text = "Bobby";
    list.records.redraw(*list.records.at(2));
    list.records.at(1)->item(kName).text = "Rob";
    list.records.redraw(*list.records.at(1));
    list.control.syncNow();
    EXPECT_EQ(list.names(), QStringList({"Bobby"}));
}

// Wrong here means a row on screen twice, missing, or another's: compared with a plain rebuilding.
TEST(ReportOrder, AfterAnyMixOfChangesItIsWhatBuildingItAnewWouldGive) {
    ReportList list;
    list.control.setSortKeys({{kNote}, {kName}});
    list.control.setFilterText("e");
    std::mt19937 random(7);
    const auto pick = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    int next = 0;
    for (int round = 0; round < 300; ++round) {
        for (int change = pick(6); change >= 0; --change) {
            const int count = list.records.count();
            const int what = pick(count == 0 ? 1 : 6);
            if (what == 0) {
                auto record = listRecord(QString::number(next), QString("Name %1").arg(next % 17));
                ++next;
                list.records.insert(pick(count + 1), record);
            } else if (what == 1) {
                list.records.remove(pick(count));
            } else if (what == 5) {
                std::vector<ReportRecordPtr> others = list.records.rows();
                std::shuffle(others.begin(), others.end(), random);
                others.push_back(listRecord(QString::number(next++), "Name e"));
                list.records.assign(std::move(others));
            } else {
                ReportRecord& record = *list.records.at(pick(count));
                record.pinned = what == 4 && !record.pinned;
                record.item(what == 2 ? kName : kNote).text =
                    QString(pick(2) != 0 ? "e%1" : "x%1").arg(pick(9));
                list.records.redraw(record);
            }
        }
        list.control.syncNow();
        ReportOrder fresh;
        fresh.setColumns(list.control.columns());
        fresh.setSortKeys(list.control.sortKeys());
        fresh.setFilterText("e");
        fresh.setRecords(&list.records);
        fresh.sync();
        ASSERT_EQ(list.control.shownCount(), fresh.shownCount()) << "round " << round;
        for (int row = 0; row < fresh.shownCount(); ++row) {
            ASSERT_EQ(list.names().at(row), fresh.record(row)->item(kName).text) << "round " << round;
            ASSERT_EQ(fresh.rowOf(fresh.record(row).get()), row);
        }
    }
    EXPECT_GT(next, 50);
}

// A screen reader would pass over the colour tags in silence.
TEST(ReportOrder, TellsColourCellsByTheirTipAndNeverShowsControlCharacters) {
    ReportList list;
    list.records.append(listRecord("1", "two\nlines"));
    list.records.at(0)->item(kTag).backColor = argb(200, 0, 0);
    list.records.at(0)->setTip(kTag, "Do not disturb");
    list.control.syncNow();
    const QAbstractItemModel& model = *list.control.model();
    EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString(), "Do not disturb");
    EXPECT_EQ(model.index(0, 1).data(Qt::AccessibleTextRole).toString(), "two lines");
    EXPECT_EQ(model.index(0, 1).data().toString(), "two lines");
    EXPECT_FALSE(model.index(0, 1).data(Qt::ToolTipRole).isValid()) << "tips go out as plain text only";
}
