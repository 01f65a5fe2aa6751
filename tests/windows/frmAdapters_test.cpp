#include "windows/network/frmAdapters.h"

#include "support/gui_forms.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

class AdapterDialog : public testing::Test {
protected:
    AdapterDialog() {
        world[0].link.adapterList = {{QStringLiteral("eth0"), QStringLiteral("10.0.0.7")},
                                     {QStringLiteral("<b>wlan</b>"), QStringLiteral("10.0.1.7")}};
        world.settle();
        open();
    }
    void open() {
        form = std::make_unique<frmAdapters>(world[0]->own, world[0]->network, world[0]->tmrExit, nullptr);
        form->show();
        QApplication::processEvents();
    }
    QComboBox& list() { return *form->findChild<QComboBox*>(QStringLiteral("cmbNet")); }
    QLineEdit& bind() { return *form->findChild<QLineEdit*>(QStringLiteral("txtBind")); }
    void click(const char* name) {
        auto* const button = form->findChild<QPushButton*>(QLatin1String(name));
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    QString stored(const char* key) {
        return world[0].get(kNetFile, QStringLiteral("Config"), QLatin1String(key));
    }

    World world{1};
    std::unique_ptr<frmAdapters> form;
};

} // namespace

// The station must go out on the chosen adapter, and still know it at the next look.
TEST_F(AdapterDialog, RestartTakesTheAdapter) {
    EXPECT_EQ(list().itemText(2), "<b>wlan</b>");
    EXPECT_EQ(bind().text(), "host1");
    list().setCurrentIndex(2);
    EXPECT_EQ(bind().text(), "10.0.1.7");
    click("cmdRestart");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(stored("adapter"), "1");
    EXPECT_EQ(stored("iphost"), "10.0.1.7");
    EXPECT_FALSE(world[0]->own.online);
    world.run(6);
    EXPECT_TRUE(world[0]->own.online);
    EXPECT_EQ(world[0].link.config.sendInterface, "10.0.1.7");
    open();
    EXPECT_EQ(list().currentIndex(), 2);

    bind().setText(QStringLiteral(" 0.0.0.0 "));
    click("cmdRestart");
    EXPECT_EQ(stored("iphost"), "");
    EXPECT_EQ(world[0]->own.ownIPAddress, "");
}

TEST_F(AdapterDialog, ResetForgetsTheAdapterAndEndsTheProgram) {
    list().setCurrentIndex(1);
    click("cmdRestart");
    world.run(6);
    open();
    click("cmdReset");
    QMessageBox* const box = openBox();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "You will need to restart Tessel Status to complete this action.");
    EXPECT_EQ(stored("adapter"), "0");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(stored("adapter"), "");
    EXPECT_EQ(stored("iphost"), "");
    world.run(3);
    EXPECT_TRUE(world[0].desktop.calls.contains("unloadMain"));
}
