// Rows with a state slot, a name and a status that ages, as wide and as narrow as windows get.
#include "report_list.h"

#include "controls/list/ReportHeader.h"
#include "controls/look/Tokens.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum Section { kStateSection, kNameSection, kStatusSection, kStaffSection };

struct Locations : ReportList {
    Locations() {
        ReportColumn state{QString(), look::kState, kTag};
        state.form = CellForm::State;
        state.spoken = [](const ReportRecord&) { return QStringLiteral("occupied"); };
        ReportColumn name{QStringLiteral("Active"), 160, kName};
        name.text = true;
        name.form = CellForm::Name;
        name.share = look::kNameShare;
        name.most = look::kNameMost;
        ReportColumn status{QStringLiteral("Status"), 180, kNote};
        status.form = CellForm::Aged;
        status.share = look::kStatusShare;
        status.most = look::kStatusMost;
        ReportColumn staff{QStringLiteral("Staff"), look::kStaff, kKey};
        staff.form = CellForm::Badge;
        control.setColumns({state, name, status, staff});
        records.append(listRecord("0", "Without", " "));
        records.append(listRecord("1", "With", "Status: 12min"));
        records.at(1)->preview = "a note";
        show();
    }
    void widen(int width) {
        control.resize(width, 300);
        QApplication::processEvents();
    }
    QRect cell(int row, int section) { return control.visualRect(control.model()->index(row, section)); }
};

} // namespace

// Half of a status is no status, and a list that scrolls sideways hides the other half.
TEST(LocationRows, NoCellIsEverBesideTheWindow) {
    Locations list;
    for (const int points : {8, 10, 14, 20}) {
        list.control.setFontSize(points);
        for (const int width : {300, 379, 380, 480, 1000}) {
            list.widen(width);
            EXPECT_EQ(list.control.horizontalScrollBar()->maximum(), 0);
            for (const int section : {kStateSection, kNameSection, kStatusSection, kStaffSection}) {
                const QRect cell = list.cell(1, section);
                EXPECT_GE(cell.width(), section == kStatusSection ? 100 : 16) << width << " " << points;
                EXPECT_LE(cell.right(), list.control.viewport()->width()) << width << " " << points;
            }
            // What is under the mouse is what is told of.
            EXPECT_EQ(list.control.indexAt(list.cell(1, kStatusSection).center()).column(), kStatusSection);
        }
    }
}

TEST(LocationRows, TheStatusGoesUnderTheNameWhereThereIsLittleRoom) {
    Locations list;
    list.widen(480);
    EXPECT_EQ(list.height(1), list.height(0));
    EXPECT_EQ(list.cell(1, kStaffSection).left(), list.cell(1, kStatusSection).right() + 1)
        << "the badge stays at the age";
    list.widen(320);
    EXPECT_GT(list.height(1), list.height(0)) << "a row without a status needs no line for it";
    EXPECT_EQ(list.cell(1, kStatusSection).left(), list.cell(1, kNameSection).left());
    EXPECT_GT(list.cell(1, kStatusSection).width(), 200);

    // A status that comes and one that goes change the heights.
    list.records.at(0)->item(kNote).text = "Lunch";
    list.records.at(1)->item(kNote).text = " ";
    list.records.redraw(*list.records.at(0));
    list.records.redraw(*list.records.at(1));
    list.control.syncNow();
    EXPECT_GT(list.height(0), list.height(1));
    list.widen(480);
    list.control.setFontSize(20);
    EXPECT_GT(list.height(0), list.height(1)) << "with large letters, too";
    list.widen(1600);
    list.control.setFontSize(10);
    EXPECT_LT(list.cell(0, kStaffSection).right(), 1000) << "a wide window does not tear a row apart";
}

// Two letters of a name must not bring up half of the office.
TEST(LocationRows, KeywordsAreFoundAsAWhole) {
    Locations list;
    list.control.setKeywords([](const ReportRecord& record) {
        return record.item(kKey).text == "0" ? QStringLiteral("free")
                                             : QStringLiteral("do not disturb status:Lunch");
    });
    const auto found = [&list](const char* text) {
        list.control.setFilterText(QLatin1String(text));
        return list.names();
    };
    EXPECT_EQ(found("FREE"), QStringList("Without"));
    EXPECT_EQ(found("re"), QStringList());
    EXPECT_EQ(found("do not disturb"), QStringList("With"));
    EXPECT_EQ(found("status:lu"), QStringList("With"));
    EXPECT_EQ(found("status:unch"), QStringList());
    EXPECT_EQ(found("with free"), QStringList("Without"));
}

TEST(LocationRows, TheSlotsHeaderIsPressedAndItsCellsAreHeard) {
    Locations list;
    QSignalSpy pressed(&list.control, &ReportControl::stateHeaderClicked);
    QWidget* const header = list.control.header()->viewport();
    QTest::mouseClick(header, Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(pressed.count(), 1);
    QTest::mouseClick(header, Qt::LeftButton, {}, QPoint(80, 10));
    EXPECT_EQ(pressed.count(), 1);
    EXPECT_EQ(list.control.model()->index(0, kStateSection).data(Qt::AccessibleTextRole), "occupied");
}
