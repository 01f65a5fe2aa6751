#include "controls/bars/MessageBar.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

// A bar above an edit box, as the views have it.
struct View {
    explicit View(MessageBar::Accent accent = MessageBar::Accent::Alert)
        : bar(new MessageBar(accent)), edit(new QLineEdit) {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(edit);
        column->addWidget(bar);
        bar->setButton(QStringLiteral("Turn Off"), QStringLiteral("Turn Off Status Message"));
        window.resize(500, 200);
        window.show();
        window.activateWindow();
        edit->setFocus();
        QApplication::processEvents();
    }
    QString tip() {
        QHelpEvent help(QEvent::ToolTip, {100, 5}, bar->mapToGlobal(QPoint(100, 5)));
        QApplication::sendEvent(bar, &help);
        return QToolTip::text();
    }

    QWidget window;
    MessageBar* bar;
    QLineEdit* edit;
};

} // namespace

// A doorbell in the middle of a sentence must not take the keys.
TEST(MessageBar, ComesAndGoesWithItsContentAndLeavesTheFocusAlone) {
    View view;
    EXPECT_FALSE(view.bar->isVisible());
    view.bar->setContent({{}, "DoorBell", "Please come", "10:15 AM", "Reception"});
    QApplication::processEvents();
    EXPECT_TRUE(view.bar->isVisible());
    EXPECT_TRUE(view.edit->hasFocus());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view.bar)->text(QAccessible::Name),
              "DoorBell Please come 10:15 AM (Reception)");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view.bar)->role(), QAccessible::AlertMessage);

    QSignalSpy clicked(view.bar, &MessageBar::buttonClicked);
    QTest::keyClick(view.edit, Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), view.edit);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 1);
    view.bar->setContent({});
    EXPECT_FALSE(view.bar->isVisible());
}

// One long note would push the main window off the screen.
TEST(MessageBar, ALongTextIsCutAndWholeInThePlainTip) {
    View view;
    view.bar->setContent({{}, "DoorBell", "short", "10:15 AM", "Reception"});
    QApplication::processEvents();
    EXPECT_EQ(view.tip(), QString());
    const int line = view.bar->height();
    view.bar->setContent({{}, "DoorBell", QString(60, u'W'), "10:15 AM", "Reception"});
    QApplication::processEvents();
    EXPECT_TRUE(view.tip().contains(QString(60, u'W')));
    const int height = view.bar->height(); // the text has a line of its own
    EXPECT_GT(height, line);
    EXPECT_LE(height, 2 * line);
    for (const QString& text :
         {QString(8000, u'W'), QString(8000, u'\n') + "<i>end", QString(3000, QChar(0x0301))}) {
        view.bar->setContent({{}, text, "<b>a</b>" + text, text, text});
        QApplication::processEvents();
        view.window.adjustSize();
        view.window.resize(500, 200);
        EXPECT_EQ(view.window.width(), 500);
        EXPECT_EQ(view.bar->height(), height);
        EXPECT_LT(view.window.minimumSizeHint().width(), 250);
        EXPECT_FALSE(view.bar->grab().isNull());
    }
    view.bar->setContent({{}, "DoorBell", "<b>a</b>" + QString(300, u'W'), "10:15 AM", "Reception"});
    QApplication::processEvents();
    EXPECT_TRUE(view.tip().contains("&lt;b&gt;a"));
    EXPECT_TRUE(view.tip().contains("(Reception)"));
}
