#include "report_list.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportHeader.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

ReportRecordPtr firstOf(QSignalSpy& spy) {
    return spy.takeFirst().at(0).value<ReportRecordPtr>();
}

} // namespace

// --- selection -----------------------------------------------------------------------------------

// The user would act on another location than the one selected.
TEST(ReportControl, SelectionStaysWithItsRecordThroughSortsStormsAndRemovals) {
    ReportList list;
    list.control.setSortKeys({{kName}});
    list.fill(200);
    list.show();
    ASSERT_TRUE(list.control.selectKey(kKey, u"100"));
    QSignalSpy told(&list.control, &ReportControl::currentRecordChanged);

    list.control.setSortKeys({{kName, false, false}});
    for (int i = 0; i < 200; i += 2) {
        list.records.at(i)->item(kName).text = QStringLiteral("Name %1").arg(i * 7919 % 501);
        list.records.redraw(*list.records.at(i));
    }
    list.control.syncNow();
    list.records.removeIf([](const ReportRecord& record) { return record.item(kKey).text.toInt() % 4 == 1; });
    list.records.insert(0, listRecord("new", "Name 9999"));
    list.control.syncNow();
    list.control.setFilterText("name");
    EXPECT_EQ(list.current(), "100");
    EXPECT_EQ(list.selected(), list.control.currentRecord()->item(kName).text);
    EXPECT_EQ(told.count(), 0);
}

// A row one reads would run away while others come in above it.
TEST(ReportControl, RowsInSightStayInPlaceWhileOthersComeAndGo) {
    ReportList list;
    list.fill(300);
    list.show();
    list.control.scrollTo(list.control.model()->index(100, 0), QAbstractItemView::PositionAtTop);
    ASSERT_EQ(list.top(100), 0);
    for (int i = 0; i < 20; ++i) {
        list.records.insert(0, listRecord("n" + QString::number(i), "new"));
    }
    list.records.remove(50);
    list.control.syncNow();
    EXPECT_EQ(list.keyAt(119), "Name 100");
    EXPECT_EQ(list.top(119), 0);

    // One row of those in sight going far away takes nothing with it.
    list.control.setSortKeys({{kTag, true}});
    list.control.scrollTo(list.control.model()->index(100, 0), QAbstractItemView::PositionAtTop);
    ReportRecord& leaving = *list.records.find(u"83");
    const int before = list.top(110);
    const QString there = list.keyAt(110);
    leaving.item(kTag).value = 9;
    list.records.redraw(leaving);
    list.control.syncNow();
    EXPECT_EQ(list.keyAt(109), there);
    EXPECT_EQ(list.top(109), before);

    // At the very top one sees what comes.
    list.control.ensureTopVisible();
    list.records.insert(0, listRecord("newest", "newest"));
    list.control.syncNow();
    EXPECT_EQ(list.keyAt(0), "newest");
    EXPECT_EQ(list.top(0), 0);
}

// --- keys and mouse ------------------------------------------------------------------------------

// A message would open twice, or not at all.
TEST(ReportControl, ActivatesOnceForEnterAndForADoubleClick) {
    ReportList list;
    list.fill(5);
    list.show();
    QSignalSpy activated(&list.control, &ReportControl::recordActivated);
    QTest::keyClick(&list.control, Qt::Key_Return);
    EXPECT_EQ(activated.count(), 0) << "nothing is selected yet";
    list.control.selectKey(kKey, u"2");
    QTest::keyClick(&list.control, Qt::Key_Return);
    QTest::keyClick(&list.control, Qt::Key_Enter, Qt::KeypadModifier);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&list.control, &held);
    EXPECT_EQ(activated.count(), 2);
    EXPECT_EQ(firstOf(activated)->item(kKey).text, "2");
    activated.clear();

    QTest::mouseClick(list.control.viewport(), Qt::LeftButton, {}, list.place(3));
    EXPECT_EQ(list.current(), "3");
    EXPECT_EQ(activated.count(), 0);
    QTest::mouseDClick(list.control.viewport(), Qt::LeftButton, {}, list.place(3));
    EXPECT_EQ(activated.count(), 1);
    QTest::mouseDClick(list.control.viewport(), Qt::LeftButton, {}, QPoint(50, 250));
    EXPECT_EQ(activated.count(), 1) << "below the last row there is nothing";
}

// The list moves between the two clicks: the message below it would open instead.
TEST(ReportControl, ADoubleClickMeansTheRowOfItsFirstClick) {
    ReportList list;
    list.fill(5);
    list.show();
    QSignalSpy activated(&list.control, &ReportControl::recordActivated);
    const QPoint place = list.place(2);
    QTest::mouseClick(list.control.viewport(), Qt::LeftButton, {}, place);
    list.records.insert(0, listRecord("new", "new"));
    list.control.syncNow();
    QMouseEvent second(QEvent::MouseButtonDblClick, place, list.control.viewport()->mapToGlobal(place),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.control.viewport(), &second);
    ASSERT_EQ(activated.count(), 1);
    EXPECT_EQ(firstOf(activated)->item(kKey).text, "2");
}

TEST(ReportControl, AsksForTheMenuOfTheRowByMouseAndByKey) {
    ReportList list;
    list.fill(50);
    list.show();
    QSignalSpy asked(&list.control, &ReportControl::recordMenuRequested);
    const auto ask = [&list](QContextMenuEvent::Reason reason, QObject* where, const QPoint& pos) {
        QContextMenuEvent event(reason, pos, list.control.viewport()->mapToGlobal(pos));
        QApplication::sendEvent(where, &event);
    };
    ask(QContextMenuEvent::Mouse, list.control.viewport(), list.place(2));
    EXPECT_EQ(list.selected(), "Name 2") << "the menu acts on what is seen selected";
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked.at(0).at(1).toPoint(), list.control.viewport()->mapToGlobal(list.place(2)));
    EXPECT_EQ(firstOf(asked)->item(kKey).text, "2");

    list.control.verticalScrollBar()->setValue(400);
    QTest::keyClick(&list.control, Qt::Key_F10, Qt::ShiftModifier);
    ask(QContextMenuEvent::Keyboard, &list.control, {});
    ASSERT_EQ(asked.count(), 2);
    const QPoint pos = list.control.viewport()->mapFromGlobal(asked.at(1).at(1).toPoint());
    EXPECT_TRUE(list.control.viewport()->rect().contains(pos))
        << "the row was scrolled into sight for its menu";
    EXPECT_EQ(firstOf(asked)->item(kKey).text, "2");
}

TEST(ReportControl, MovesByKeysAndByTypedLetters) {
    ReportList list;
    list.fill(100);
    list.records.append(listRecord("z", "Zoe"));
    list.records.at(0)->item(kTag).text = "|"; // a mark in a narrow column is no name
    list.control.syncNow();
    list.show();
    const auto after = [&list](Qt::Key key) {
        QTest::keyClick(&list.control, key);
        EXPECT_EQ(list.selected(), list.control.currentRecord()->item(kName).text);
        EXPECT_TRUE(
            list.control.viewport()->rect().intersects(list.control.visualRect(list.control.currentIndex())));
        return list.current().toStdString();
    };
    EXPECT_EQ(after(Qt::Key_Down), "0");
    EXPECT_EQ(after(Qt::Key_Up), "0");
    EXPECT_EQ(after(Qt::Key_Down), "1");
    EXPECT_EQ(after(Qt::Key_End), "z");
    EXPECT_EQ(after(Qt::Key_Down), "z");
    EXPECT_EQ(after(Qt::Key_Home), "0");
    const int page = QString::fromStdString(after(Qt::Key_PageDown)).toInt();
    EXPECT_GE(page, 5);
    EXPECT_LT(page, 15);
    EXPECT_EQ(after(Qt::Key_PageUp), "0");
    EXPECT_EQ(after(Qt::Key_Z), "z") << "typed letters look in the names, not in the tag column";
}

TEST(ReportControl, AHeaderClickSortsWhereItIsAllowed) {
    ReportList list;
    list.fill(3);
    list.show();
    const QStringList given = list.names();
    const QPoint name(list.control.header()->sectionViewportPosition(1) + 20, 8);
    QTest::mouseClick(list.control.header()->viewport(), Qt::LeftButton, {}, name);
    EXPECT_EQ(list.names(), given);
    list.control.setSortableByHeader(true);
    QTest::mouseClick(list.control.header()->viewport(), Qt::LeftButton, {}, name);
    QTest::mouseClick(list.control.header()->viewport(), Qt::LeftButton, {}, name);
    EXPECT_EQ(list.names(), QStringList({"Name 2", "Name 1", "Name 0"}));
}

// --- keeping up, drawing -------------------------------------------------------------------------

TEST(ReportControl, APreviewTakesASecondLineOnlyWhereThereIsOne) {
    ReportList list;
    list.fill(60);
    list.show();
    const int plain = list.height(0);
    list.records.at(1)->preview = "more to read";
    list.records.redraw(*list.records.at(1));
    list.control.syncNow();
    EXPECT_EQ(list.height(1), plain);
    list.control.setPreviewMode(true);
    EXPECT_EQ(list.height(0), plain);
    EXPECT_GT(list.height(1), plain + 8);
    EXPECT_EQ(list.top(2), list.top(1) + list.height(1));
    EXPECT_EQ(list.control.indexAt(list.place(2)).row(), 2);

    // Heights follow a preview that comes and one that goes.
    list.records.at(0)->preview = "now here";
    list.records.redraw(*list.records.at(0));
    list.records.at(1)->preview.clear();
    list.records.redraw(*list.records.at(1));
    list.control.syncNow();
    EXPECT_GT(list.height(0), plain);
    EXPECT_EQ(list.height(1), plain);
}

// Blind users would hear nothing of the list.
TEST(ReportControl, IsATableForScreenReaders) {
    ReportList list;
    list.fill(3);
    list.show();
    list.control.setAccessibleName("Locations");
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&list.control);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->text(QAccessible::Name), "Locations");
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->tableInterface()->rowCount(), 3);
    EXPECT_EQ(table->tableInterface()->columnDescription(1), "Name");
    QAccessibleInterface* cell = table->tableInterface()->cellAt(2, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), "Name 2");
    list.records.at(2)->preview = "the note";
    EXPECT_EQ(cell->text(QAccessible::Description), "the note");
    EXPECT_EQ(table->tableInterface()->cellAt(2, 0)->text(QAccessible::Description), "");
    EXPECT_EQ(table->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    EXPECT_EQ(table->tableInterface()->cellAt(3, 0), nullptr);

    EXPECT_TRUE(table->tableInterface()->selectRow(1));
    EXPECT_EQ(list.current(), "1");
    EXPECT_EQ(table->tableInterface()->selectedRows(), QList<int>{1});
    ASSERT_NE(table->focusChild(), nullptr);
    EXPECT_TRUE(table->focusChild()->state().selected);

    // After rows went, no cell of before may answer for one that is not there.
    list.records.remove(0);
    list.control.syncNow();
    EXPECT_EQ(table->tableInterface()->cellAt(2, 1), nullptr);
    EXPECT_EQ(table->tableInterface()->cellAt(0, 1)->text(QAccessible::Name), "Name 1");
}
