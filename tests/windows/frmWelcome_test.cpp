#include "windows/dialogs/frmWelcome.h"

#include "controls/edit/ColorTagPicker.h"
#include "controls/edit/KeyFilterEdit.h"
#include "support/gui_forms.h"
#include "windows/FormDesktop.h"
#include "windows/mainwindow/frmMain.h"

#include <QCheckBox>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class Welcome : public testing::Test {
protected:
    Welcome() {
        world[0].set(kUserFile, QStringLiteral("User"), QStringLiteral("LOCATION"), {});
        world[0].set(kUserFile, QStringLiteral("User"), QStringLiteral("TAG"), {});
        world[0].set(kUserFile, QStringLiteral("User"), QStringLiteral("FirstRun"), {});
        world.start(0);
        form = new frmWelcome(*world[0].station);
        form->show();
        QApplication::processEvents();
    }
    ~Welcome() override { delete form; }
    QString stored(const char* section, const char* key) {
        return world[0].get(kUserFile, QLatin1String(section), QLatin1String(key));
    }
    KeyFilterEdit& name() { return *form->findChild<KeyFilterEdit*>(); }

    World world{1};
    QPointer<frmWelcome> form;
};

} // namespace

// What is chosen here is what the whole office sees of this location from now on.
TEST_F(Welcome, WritesItsKeysAndHandsOver) {
    EXPECT_EQ(world[0].desktop.calls, QStringList({"showWelcome"}));
    EXPECT_EQ(name().text(), "user1");
    QTest::keyClicks(&name(), "Front:Desk |1"); // what was there is selected; two of these are separators
    EXPECT_EQ(name().text(), "FrontDesk 1");
    form->findChild<ColorTagPicker*>(QStringLiteral("ColorTag"))->setChosen(6);
    form->findChild<QCheckBox*>(QStringLiteral("chkDoorBell_Nav"))->setChecked(true);
    QTest::keyClick(&name(), Qt::Key_Return);

    EXPECT_EQ(stored("User", "LOCATION"), "FrontDesk 1");
    EXPECT_EQ(stored("User", "tag"), "7");
    EXPECT_EQ(stored("User", "FirstRun"), "0");
    EXPECT_EQ(stored("Settings", "DBNAV"), "1");
    EXPECT_EQ(world[0]->own.TAG, 7);
    EXPECT_EQ(world[0].desktop.calls, QStringList({"showWelcome", "SetAutoStart 1", "showMain"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    world.run(6);
    EXPECT_EQ(world[0]->own.location, "FrontDesk 1");
    EXPECT_TRUE(world[0]->own.online);
}

// A process without a window would be left behind, and the second start would bring up nothing.
TEST_F(Welcome, EscapeEndsTheProgramAndAsksAgainNextTime) {
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_EQ(stored("User", "FirstRun"), "");
    world.run(3);
    EXPECT_TRUE(world[0].desktop.calls.contains("unloadMain"));
    EXPECT_FALSE(world[0].desktop.calls.contains("showMain"));
}
