#include "controls/bars/PaneBar.h"

#include "controls/bars/CommandBars.h"
#include "controls/bars/QuickBar.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QToolTip>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

using namespace tessel;
using testing::ElementsAre;

namespace {

std::vector<CommandItem> items() {
    return {{201, plainCaption("Lunch & coffee with Ann..."), "Back at one", -1, true},
            {202, "With a patient", {}, -1, true},
            {205, "Occupied", {}, 1, true},
            {706, "Show\\Hide Location Notes", {}, 2, true},
            {800, "Increase Font Size (10)", {}, 3},
            {801, "Decrease Font Size (10)", {}, 4},
            {810, "Sort", {}, -1, false, true}};
}

// The captions that the bar shows, in their order, and then those of its menu.
QStringList reachable(CommandBar& bar, const std::vector<int>& ids) {
    QStringList names;
    int end = -1;
    for (const int id : ids) {
        const CommandButton* const button = bar.button(id);
        if (button->isVisible()) {
            names.append(button->accessibleName());
            EXPECT_TRUE(bar.rect().contains(button->geometry()));
            EXPECT_GT(button->x(), end);
            EXPECT_GE(button->width(), button->minimumSizeHint().width() - 2);
            end = button->geometry().right();
        }
    }
    for (CommandButton* button : bar.findChildren<CommandButton*>()) {
        if (button->id() == 0 && button->isVisible()) {
            EXPECT_TRUE(bar.rect().contains(button->geometry()));
            button->click();
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            for (const QAction* action : menu->actions()) {
                names.append(spokenCaption(action->text()));
            }
            menu->close();
        }
    }
    return names;
}

QString tipOf(QWidget* widget) {
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), widget->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(widget, &help);
    return QToolTip::text();
}

} // namespace

TEST(PaneBar, EveryPaneAndQuickCommandIsReachableAtAnyWidth) {
    CommandSet commands(items());
    const std::vector<int> quickIds{201, 202, 205};
    const std::vector<int> paneIds{706, 800, 801, 810};
    QuickBar quick(commands, quickIds);
    PaneBar panes(commands, paneIds);
    panes.setFooter("  Exam Room");
    quick.show();
    panes.show();
    for (int width = 60; width < 700; width += 11) {
        SCOPED_TRACE(width);
        quick.resize(width, 30);
        panes.resize(width, 30);
        EXPECT_THAT(reachable(quick, quickIds),
                    ElementsAre("Lunch & coffee with Ann...", "With a patient", "Occupied"));
        EXPECT_THAT(reachable(panes, paneIds),
                    ElementsAre("Show\\Hide Location Notes", "Increase Font Size (10)",
                                "Decrease Font Size (10)", "Sort"));
        EXPECT_GT(panes.findChild<QLabel*>()->width(), 10) << "the text keeps some room";
    }
    EXPECT_LT(quick.minimumSizeHint().width(), 60);
    EXPECT_LT(panes.minimumSizeHint().width(), 120);
}

TEST(PaneBar, LongCaptionsGiveWayBeforeShortOnes) {
    EXPECT_THAT(shareRoom({100, 40, 200}, {20, 20, 20}, 340), ElementsAre(100, 40, 200));
    EXPECT_THAT(shareRoom({100, 40, 200}, {20, 20, 20}, 240), ElementsAre(100, 40, 100));
    EXPECT_THAT(shareRoom({100, 40, 200}, {20, 20, 20}, 90), ElementsAre(30, 30, 30));
    EXPECT_THAT(shareRoom({100, 40, 200}, {20, 50, 20}, 10), ElementsAre(20, 50, 20));
    EXPECT_THAT(shareRoom({}, {}, 10), ElementsAre());
}

// Names and texts of other stations stand in the footer.
TEST(PaneBar, AFooterWithoutRoomIsCutAndToldInItsTipAsPlainText) {
    CommandSet commands(items());
    PaneBar bar(commands, {706});
    bar.resize(600, 30);
    bar.show();
    auto* const text = bar.findChild<QLabel*>();
    bar.setFooter("  Online\nnow", "All & <b>well</b>");
    EXPECT_EQ(bar.footer(), "  Online now");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(text)->text(QAccessible::Name), bar.footer());
    EXPECT_FALSE(tipOf(text).contains("Online"));
    EXPECT_TRUE(tipOf(text).contains("&lt;b&gt;well"));
    bar.setFooter(QString(5000, 'w') + "<img>");
    EXPECT_EQ(bar.width(), 600);
    EXPECT_LT(bar.minimumSizeHint().width(), 200);
    EXPECT_TRUE(tipOf(text).contains("www"));
    EXPECT_FALSE(tipOf(text).contains("<img>"));
    EXPECT_TRUE(tipOf(bar.button(706)).contains("Show\\Hide Location Notes"));
}

TEST(PaneBar, PanesAreReachedAndPressedByKeyboard) {
    CommandSet commands(items());
    QWidget window;
    PaneBar bar(commands, {706, 800, 801, 810}, &window);
    bar.resize(500, 30);
    window.resize(500, 400);
    bar.move(0, 370);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    std::vector<int> told;
    QObject::connect(&commands, &CommandSet::triggered, &window, [&told](int id) { told.push_back(id); });
    bar.takeFocus();
    for (const auto key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Return, Qt::Key_End, Qt::Key_Space,
                           Qt::Key_Home, Qt::Key_Enter}) {
        QTest::keyClick(QApplication::focusWidget(), key);
    }
    EXPECT_THAT(told, ElementsAre(706, 800, 810, 706));
    commands.setChecked(706, true);
    EXPECT_TRUE(bar.button(706)->isChecked());

    // At the foot of the window a menu opens upwards, off its button.
    bar.button(810)->setFocus();
    QMenu menu;
    const QAction* const first = menu.addAction("By name");
    bar.openMenu(810, menu);
    EXPECT_LE(menu.geometry().bottom(), bar.mapToGlobal(QPoint(0, 5)).y());
    EXPECT_EQ(menu.activeAction(), first);
    menu.close();
}
