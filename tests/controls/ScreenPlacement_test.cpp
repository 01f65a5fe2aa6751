#include "controls/look/ScreenPlacement.h"

#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tessel;

// A window must come back where it was, and into reach where that place is gone: a screen unplugged,
// a smaller one, a panel, a file edited by hand.
TEST(ScreenPlacement, WindowsComeBackIntoReach) {
    const QRect left(0, 30, 1600, 870);
    const QRect right(1600, 0, 1280, 1024);
    const QSize size(500, 400);
    struct Case {
        const char* what;
        QPoint stored;
        QSize wanted;
        QRect expected;
    };
    const Case cases[] = {
        {"as it was", {100, 100}, size, QRect(QPoint(100, 100), size)},
        {"as it was, second screen", {1700, 500}, size, QRect(QPoint(1700, 500), size)},
        {"touching the border", {1100, 500}, size, QRect(QPoint(1100, 500), size)},
        {"over the right border", {2700, 100}, size, QRect(QPoint(2380, 100), size)},
        {"under the panel", {100, 0}, size, QRect(QPoint(100, 30), size)},
        {"far away", {90000, -90000}, size, QRect(QPoint(2380, 0), size)},
        {"between screens belongs where its title's middle is",
         {1400, 100},
         size,
         QRect(QPoint(1600, 100), size)},
        {"larger than the screen", {50, 50}, {5000, 5000}, QRect(1600, 0, 1280, 1024)},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(placedOnScreens(c.stored, c.wanted, {left, right}), c.expected) << c.what;
    }
    const QRect fresh = placedOnScreens(std::nullopt, size, {left, right});
    EXPECT_LE((fresh.center() - left.center()).manhattanLength(), 2);
    EXPECT_EQ(placedOnScreens(QPoint(5, 6), size, {}), QRect(QPoint(5, 6), size));
}

// What stands at the lower end of a window, its buttons, must be on the screen with large letters too.
TEST(ScreenPlacement, LettersMakeWindowsLargerUpToTheScreen) {
    QWidget window;
    window.setFont(QFont(QStringLiteral("DejaVu Sans"), 20));
    const QSize screen = window.screen()->availableSize();
    EXPECT_GT(sizeForLetters(window, screen / 4).width(), screen.width() / 4);
    EXPECT_LT(sizeForLetters(window, screen).height(), screen.height());
}
