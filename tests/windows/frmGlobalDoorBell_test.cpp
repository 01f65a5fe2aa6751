#include "support/gui_forms.h"
#include "windows/alerts/frmGlobalDoorBell.h"

#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tessel;

// Whoever has the window open while the network goes must see it, and keep what was typed.
TEST(frmGlobalDoorBell, SaysThatTheStationIsOfflineAndKeepsTheText) {
    World world(1);
    world.settle();
    Station& station = *world[0].station;
    frmGlobalDoorBell form(station);
    auto* const everyone = form.findChild<QPushButton*>(QStringLiteral("cmdGroup0"));
    auto* const word = form.findChild<QWidget*>(QStringLiteral("lblOffline"));
    auto* const text = form.findChild<QLineEdit*>();
    form.show();
    EXPECT_TRUE(everyone->isEnabled());
    EXPECT_FALSE(word->isVisible());

    station.network.RestartNetwork();
    EXPECT_FALSE(everyone->isEnabled());
    EXPECT_TRUE(word->isVisible());
    QTest::keyClicks(text, QStringLiteral("tea"));
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(station.footer.text(), "  Not sent: offline");

    world.run(6);
    EXPECT_FALSE(word->isVisible());
    world.network.sent.clear();
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(world.network.sent.size(), 1U);
}
