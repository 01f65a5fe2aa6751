#include "windows/WindowPlaces.h"

#include "support/gui_forms.h"

#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tessel;

// A window that somebody put beside the main one must be there again tomorrow, and never out of reach.
TEST(Places, AWindowComesBackWhereItWasClosed) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().topLeft();
    MemoryRegistry registry;
    {
        QWidget window;
        window.setObjectName(QStringLiteral("frmSome"));
        keepPlace(window, registry);
        window.resize(320, 240);
        window.move(corner + QPoint(70, 60));
        window.show();
        window.close();
    }
    QWidget again;
    again.setObjectName(QStringLiteral("frmSome"));
    keepPlace(again, registry);
    EXPECT_EQ(again.pos(), corner + QPoint(70, 60));
    EXPECT_EQ(again.size(), QSize(320, 240));

    registry.places[QStringLiteral("frmSome")] = QPoint(90000, 90000);
    QWidget lost;
    lost.setObjectName(QStringLiteral("frmSome"));
    keepPlace(lost, registry);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(lost.geometry()));

    // The screen may be smaller than the one of yesterday, and the frame takes its share.
    registry.sizes[QStringLiteral("frmSome")] = QSize(9000, 9000);
    QWidget large;
    large.setObjectName(QStringLiteral("frmSome"));
    keepPlace(large, registry);
    large.show();
    ASSERT_TRUE(QTest::qWaitFor([&large] {
        return QGuiApplication::primaryScreen()->availableGeometry().contains(large.frameGeometry());
    }));
}
