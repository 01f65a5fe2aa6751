#include "controls/list/ReportColors.h"
#include "controls/popup/PopupControl.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QVariantAnimation>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

PopupLook notice() {
    PopupLook look;
    look.frameFrom = QColor(50, 50, 255);
    look.frameTo = Qt::white;
    look.bodyFrom = QColor(70, 70, 250);
    look.bodyTo = QColor(200, 200, 200);
    look.caption = QStringLiteral("DoorBell");
    look.label = QStringLiteral("Room 7");
    look.text = QStringLiteral("Please come.");
    look.time = QStringLiteral("10:15 AM");
    look.turnOffButton = true;
    return look;
}

PopupLook message() {
    PopupLook look;
    look.messageLayout = true;
    look.optionsButton = true;
    look.caption = QStringLiteral("From: Reception");
    look.text = QStringLiteral("Call back.");
    return look;
}

QAbstractButton* button(const PopupControl& popup, const QString& name) {
    for (auto* found : popup.findChildren<QAbstractButton*>()) {
        if (found->accessibleName() == name && found->isVisible()) {
            return found;
        }
    }
    return nullptr;
}

// The mouse as the desktop has it: places on the screen, whatever the popup does meanwhile.
void send(PopupControl& popup, QEvent::Type type, QPoint onScreen) {
    const bool up = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, popup.mapFromGlobal(onScreen), onScreen, Qt::LeftButton,
                      up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&popup, &event);
}

void show(PopupControl& popup, const PopupLook& look, QPoint topLeft) {
    popup.prepare(look, QGuiApplication::primaryScreen()->availableGeometry());
    popup.show(topLeft);
}

void drag(PopupControl& popup, QPoint from, QPoint by) {
    send(popup, QEvent::MouseButtonPress, from);
    send(popup, QEvent::MouseMove, from + by / 2);
    send(popup, QEvent::MouseMove, from + by);
    send(popup, QEvent::MouseButtonRelease, from + by);
}

} // namespace

// What the user types would go into a popup, or close it. The desktop of the tests activates whatever
// comes up, so this asks for what real ones look at.
TEST(PopupControl, NeverHasTheFocus) {
    PopupControl popup;
    for (const PopupLook& look : {notice(), message()}) {
        show(popup, look, {10, 10});
        QApplication::processEvents();
        for (auto* item : popup.findChildren<QAbstractButton*>()) {
            EXPECT_EQ(item->focusPolicy(), Qt::NoFocus);
        }
    }
    QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.rect().center());
    QTest::keyClick(&popup, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(popup.focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(popup.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(popup.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_FALSE(popup.testAttribute(Qt::WA_QuitOnClose)) << "a program without other windows would end";
}

TEST(PopupControl, TellsWhichItemWasClicked) {
    PopupControl popup;
    QSignalSpy text(&popup, &PopupControl::textClicked);
    QSignalSpy close(&popup, &PopupControl::closeClicked);
    QSignalSpy off(&popup, &PopupControl::turnOffClicked);
    QSignalSpy options(&popup, &PopupControl::optionsClicked);
    show(popup, notice(), {10, 10});
    EXPECT_EQ(button(popup, "Options"), nullptr);
    QTest::mouseClick(&popup, Qt::LeftButton, {}, popup.rect().center());
    QTest::mouseClick(&popup, Qt::RightButton, {}, popup.rect().center());
    QTest::mouseClick(&popup, Qt::LeftButton, {}, QPoint(20, 8)); // the caption
    EXPECT_EQ(text.count(), 1);
    QTest::mouseClick(button(popup, "Close"), Qt::LeftButton);
    QTest::mouseClick(button(popup, "Turn Off"), Qt::LeftButton);
    EXPECT_EQ(close.count(), 1);
    EXPECT_EQ(off.count(), 1);

    show(popup, message(), {10, 10});
    EXPECT_EQ(button(popup, "Turn Off"), nullptr);
    QTest::mouseClick(button(popup, "Options"), Qt::LeftButton);
    EXPECT_EQ(options.count(), 1);
    EXPECT_EQ(text.count(), 1);
    QTest::mouseClick(&popup, Qt::LeftButton, {}, QPoint(60, 8));
    EXPECT_EQ(text.count(), 2) << "the sender's name is as good as the text";
}

// A drag would open the message, or a click with a shaking hand store a place.
TEST(PopupControl, ADragMovesAndIsNoClick) {
    PopupControl popup;
    QSignalSpy text(&popup, &PopupControl::textClicked);
    QSignalSpy moved(&popup, &PopupControl::moved);
    PopupLook look = notice();
    show(popup, look, {100, 100});
    const QPoint middle = popup.geometry().center();
    drag(popup, middle, {80, 40});
    EXPECT_EQ(popup.pos(), QPoint(180, 140));
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.takeFirst().at(0).toPoint(), QPoint(180, 140));
    EXPECT_EQ(text.count(), 0);

    drag(popup, popup.geometry().center(), {2, 2});
    EXPECT_EQ(popup.pos(), QPoint(180, 140));
    EXPECT_EQ(moved.count(), 0);
    EXPECT_EQ(text.count(), 1);

    look.movable = false;
    show(popup, look, {100, 100});
    drag(popup, middle, {80, 40});
    EXPECT_EQ(popup.pos(), QPoint(100, 100));
    EXPECT_EQ(moved.count(), 0);
    EXPECT_EQ(text.count(), 1) << "a press that ends elsewhere is no click either";
}

TEST(PopupControl, HostileTextsAndLargeFontsStayOnTheScreen) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QString endless(8000, u'W');
    PopupControl popup;
    for (PopupLook look : {notice(), message()}) {
        for (const QString& text : {endless, QString(8000, u'\n'), QString(8000, QChar(0x0301)),
                                    QStringLiteral("<b>x</b>"), QString()}) {
            look.caption = look.label = look.text = look.time = text;
            for (const int size : {0, 10, 20, 400}) {
                look.fontSize = size;
                show(popup, look, screen.topLeft());
                EXPECT_TRUE(screen.contains(popup.geometry())) << size;
                EXPECT_EQ(popup.prepare(look, screen), popup.size());
                for (auto* item : popup.findChildren<QAbstractButton*>()) {
                    EXPECT_TRUE(!item->isVisible() || popup.rect().contains(item->geometry()));
                }
                EXPECT_FALSE(popup.grab().isNull());
                EXPECT_LE(popup.accessibleName().size(), 1100);
            }
            look.fontSize = 10;
            EXPECT_EQ(popup.prepare(look, screen).width(), 320);
            EXPECT_LE(popup.prepare(look, screen).height(), 280);
            EXPECT_LE(popup.prepare(look, QRect(0, 0, 120, 60)).height(), 60);
        }
    }
    PopupLook plain = message();
    plain.fontSize = 10;
    EXPECT_EQ(popup.prepare(plain, screen), QSize(320, 166)) << "270 by 140 units";
    plain.fontSize = 20;
    EXPECT_GT(popup.prepare(plain, screen).width(), 450);
}

// Text on a strong colour is not read in passing; and what stands still must not go on moving.
TEST(PopupControl, ReadsOnItsLightEndAndCallsTwice) {
    PopupControl popup;
    PopupLook look = notice();
    look.bodyFrom = QColor(250, 16, 85);
    look.icon = QIcon();
    show(popup, look, {0, 0});
    EXPECT_GE(contrastRatio(popup.grab().toImage().pixelColor(popup.width() - 20, 60), Qt::black), 7.0);

    QPixmap dot(16, 16);
    dot.fill(Qt::transparent);
    look.icon = QIcon(dot);
    look.motion = look.pulse = look.shadow = true;
    show(popup, look, {100, 100});
    EXPECT_EQ(popup.box().topLeft(), QPoint(100, 100)) << "the shadow is around it";
    EXPECT_GT(popup.width(), popup.box().width());
    EXPECT_LT(popup.windowOpacity(), 1.0);
    const QPoint icon = popup.box().topLeft() - popup.pos() + QPoint(20, popup.box().height() - 12);
    const auto strong = [&] { return popup.grab().toImage().pixelColor(icon).lightness(); };
    const int rest = strong();
    for (QVariantAnimation* const motion : popup.findChildren<QVariantAnimation*>()) {
        ASSERT_EQ(motion->state(), QAbstractAnimation::Running);
        const bool calls = motion->loopCount() == 2;
        motion->pause();
        motion->setCurrentTime(motion->duration() / 2);
        EXPECT_EQ(strong() > rest + 20, calls);
        motion->setCurrentTime(motion->totalDuration());
        EXPECT_EQ(strong(), rest);
    }
    EXPECT_EQ(popup.windowOpacity(), 1.0);
}
