#include "controls/look/OfficeLook.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyle>

#include <gtest/gtest.h>

using namespace tessel;

// Whoever walks through a menu must see the picture of the very row that is next.
TEST(OfficeLook, TheChosenRowOfAMenuKeepsItsPicture) {
    const QPalette before = QApplication::palette();
    SetStyle();
    QPixmap accent(32, 32);
    accent.fill(QApplication::palette().color(QPalette::Link));
    QMenu menu;
    QAction* const action = menu.addAction(QIcon(accent), QStringLiteral("DoorBell"));
    menu.popup({});
    menu.setActiveAction(action);
    const QImage shown = menu.grab().toImage();
    const QRect row = menu.actionGeometry(action);
    const QColor back = shown.pixelColor(row.right() - 4, row.center().y());
    int seen = 0;
    for (int x = row.left(); x < row.left() + row.height(); ++x) {
        const QColor dot = shown.pixelColor(x, row.center().y());
        seen += std::abs(dot.lightness() - back.lightness()) > 40;
    }
    EXPECT_GE(seen, 10);
    EXPECT_NE(back, menu.palette().color(QPalette::Window)) << "and that it is chosen";
    QApplication::setPalette(before);
    QApplication::setStyle(QStringLiteral("fusion"));
}
