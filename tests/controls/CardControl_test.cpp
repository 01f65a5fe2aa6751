#include "controls/list/CardControl.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

enum CardItem { kHeading, kName, kText, kStamp, kCardItems };

ReportRecordPtr card(const QString& name, const QString& text) {
    auto record = std::make_shared<ReportRecord>(kCardItems);
    record->item(kHeading).text = QStringLiteral("From ");
    record->item(kName).text = name;
    record->item(kText).text = text;
    record->item(kStamp).text = QStringLiteral("10:15 AM");
    record->item(kStamp).backColor = argb(0, 128, 0);
    return record;
}

struct History {
    History() {
        control.setCardItems({kHeading, kName, kText, kStamp, kStamp});
        control.setRecords(&records);
        control.resize(400, 500);
    }
    // Texts of very different lengths, so that few guesses of heights are right.
    void fill(int count) {
        std::vector<ReportRecordPtr> rows;
        for (int i = 0; i < count; ++i) {
            const QString word = i % 3 == 0 ? QStringLiteral("WWWWWWWW ") : QStringLiteral("i ");
            rows.push_back(card(QString::number(i), word.repeated(i * 7 % 60)));
        }
        records.assign(std::move(rows));
        control.syncNow();
    }
    void show() {
        control.show();
        control.activateWindow();
        control.setFocus();
        QApplication::processEvents();
    }
    QRect rect(int row) const { return control.visualRect(control.model()->index(row, 0)); }
    QString nameAt(int y) const {
        const QModelIndex index = control.indexAt({50, y});
        return index.isValid() ? records.at(index.row())->item(kName).text : QStringLiteral("none");
    }
    QString current() const {
        const ReportRecordPtr record = control.currentRecord();
        return record ? record->item(kName).text : QStringLiteral("none");
    }

    ReportRecords records{-1};
    CardControl control;
};

} // namespace

// While one reads, the cards would jump: above them others come in, or are measured for the first time.
TEST(CardControl, WhatOneReadsStaysInPlace) {
    History history;
    history.fill(20'000);
    history.show();
    QScrollBar& bar = *history.control.verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const QString there = history.nameAt(250);
    const int row = history.control.indexAt({50, 250}).row();
    const int top = history.rect(row).top();
    history.records.insert(0, card("newest", QString(500, u'x')));
    history.control.syncNow();
    EXPECT_EQ(history.nameAt(250), there);
    EXPECT_EQ(history.rect(row + 1).top(), top);

    // Upwards, over cards that nobody has seen yet: each step moves by what was asked for.
    for (int step = 0; step < 60; ++step) {
        const int seen = history.control.indexAt({50, 200}).row();
        const int before = history.rect(seen).top();
        bar.setValue(bar.value() - 40);
        ASSERT_EQ(history.rect(seen).top(), before + 40) << step;
    }
}

// A note of a megabyte, or of nothing but line breaks, comes from the network.
TEST(CardControl, HostileTextsTakeSixLinesAndAreNoMarkup) {
    History history;
    history.records.append(card("6", "1\n2\n3\n4\n5\n6"));
    for (const QString& text : {QString(1 << 20, u'W'), QString(300, u'\n') + "<b>x</b>",
                                QString(5000, QChar(0x0301)), QStringLiteral("a\n").repeated(5000),
                                QString::fromUtf8("\u202e\u202dשלום") + QChar(0) + QChar(0xd800)}) {
        history.records.append(card(text, text));
    }
    history.records.append(std::make_shared<ReportRecord>(1)); // fewer items than a card has
    history.control.resize(400, 2000);
    history.show();
    const int six = history.rect(0).height();
    for (int row = 0; row < history.control.shownCount(); ++row) {
        EXPECT_LE(history.rect(row).height(), six) << row;
    }
    EXPECT_FALSE(history.control.grab().isNull());
    const auto tip = [&history](int row) {
        const QPoint pos = history.rect(row).center();
        QHelpEvent help(QEvent::ToolTip, pos, history.control.viewport()->mapToGlobal(pos));
        QApplication::sendEvent(history.control.viewport(), &help);
        return help.isAccepted() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tip(0), QString()) << "all of it can be read";
    EXPECT_GT(tip(1).size(), 900);
    EXPECT_LT(tip(1).size(), 1100);
    history.control.setFilterText("<b>x");
    EXPECT_EQ(history.control.shownCount(), 1);
}

TEST(CardControl, ActivatesAndCopiesTheCardThatIsMeant) {
    History history;
    history.fill(5);
    history.show();
    QSignalSpy activated(&history.control, &CardControl::recordActivated);
    const QPoint place = history.rect(2).center();
    QTest::mouseClick(history.control.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(history.current(), "2");
    QTest::keyClick(&history.control, Qt::Key_Return);
    QTest::mouseDClick(history.control.viewport(), Qt::LeftButton, {}, place);
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated.at(1).at(0).value<ReportRecordPtr>(), history.records.at(2));

    history.records.at(2)->item(kText).text = "line\nanother";
    QTest::keyClick(&history.control, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "From 2\nline\nanother\n10:15 AM");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&history.control)
                  ->tableInterface()
                  ->cellAt(2, 0)
                  ->text(QAccessible::Name),
              "From 2 line another 10:15 AM");
}
