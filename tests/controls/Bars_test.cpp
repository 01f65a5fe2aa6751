// Ribbon, command bar and foot of a window: what is reachable in which room, and by which keys.
#include "controls/bars/CommandBar.h"
#include "controls/bars/CommandBars.h"
#include "controls/bars/PaneBar.h"
#include "controls/bars/Ribbon.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;

namespace {

enum Id {
    kQuit = 1,
    kStatus = 10,
    kQuiet,
    kNote,
    kRing,
    kWrite,
    kFresh,
    kLunch = 20,
    kHome = 50,
    kLists,
    kInbox
};

struct Window {
    explicit Window(int width = 1000) {
        auto* const layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        for (QWidget* part : {static_cast<QWidget*>(&ribbon), static_cast<QWidget*>(&bar),
                              static_cast<QWidget*>(&list), static_cast<QWidget*>(&foot)}) {
            layout->addWidget(part);
        }
        widen(width);
        window.show();
        window.activateWindow();
        list.setFocus();
        settle();
        QObject::connect(&commands, &CommandSet::triggered, &window, [this](int id) { told.push_back(id); });
    }
    static void settle() {
        for (int turn = 0; turn < 4; ++turn) {
            QApplication::processEvents();
        }
    }
    void widen(int width) {
        window.resize(width, 400);
        settle();
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        settle();
    }
    static QString focused() { return QApplication::focusWidget()->accessibleName(); }
    // The spoken captions of the buttons in `bar` and of the menu behind its last one.
    static QStringList reachable(const QWidget& bar) {
        QStringList names;
        for (const QToolButton* button : bar.findChildren<QToolButton*>()) {
            if (!button->isVisible() || qobject_cast<QTabBar*>(button->parentWidget()) != nullptr) {
                continue;
            }
            const QRect place(button->mapTo(&bar, QPoint()), button->size());
            EXPECT_TRUE(bar.rect().contains(place)) << button->accessibleName().toStdString();
            if (button->accessibleName() != "More commands") {
                names.append(button->accessibleName());
                continue;
            }
            emit button->menu()->aboutToShow();
            for (const QAction* action : button->menu()->actions()) {
                if (!action->isSeparator() && action->isEnabled()) {
                    names.append(spokenCaption(action->text()));
                }
            }
        }
        names.sort();
        return names;
    }
    static QString tipOf(QWidget* widget) {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), widget->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(widget, &help);
        return QToolTip::text();
    }
    QTabBar& tabs() { return *ribbon.findChild<QTabBar*>(); }

    CommandSet commands{{{kQuit, "ShutDown"},
                         {kStatus, "Set your Status", {}, 1},
                         {kQuiet, "DND", "Do Not Disturb", 2, true},
                         {kNote, "Set Location Note", {}, 3},
                         {kRing, "Ring Doorbell", "<b>Send</b>", 4},
                         {kWrite, "New Message", {}, 5},
                         {kFresh, "Refresh", {}, 7},
                         {kLunch, plainCaption("Lunch & coffee with all of us"), {}, -1, true, true},
                         {kHome, "Home "},
                         {kLists, "Favorites "},
                         {kInbox, "Inbox "}}};
    std::vector<int> told;
    QWidget window;
    Ribbon ribbon{commands,
                  {"&File",
                   {kSeparator, kQuit},
                   {kHome, kLists, kInbox},
                   {{kAllTabs,
                     {{"My status", {{kStatus, true}, {kQuiet}, {kNote}}},
                      {"Alerts", {{kRing, true}, {kWrite, true}}}}},
                    {kHome, {{"Station", {{kFresh}}}}}}}};
    CommandBar bar{commands, {kLunch, kSeparator, kQuiet, kRing, kNote}, "Quick commands"};
    QLineEdit list;
    PaneBar foot{commands, {kQuiet, kFresh}};
};

class Font {
public:
    explicit Font(int points) : m_before(QApplication::font()) {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~Font() { QApplication::setFont(m_before); }

private:
    QFont m_before;
};

} // namespace

// A command that neither shows nor stands in a menu is lost in a small window.
TEST(Bars, EveryCommandIsReachableAtAnyWidth) {
    QStringList ribbon{"DND",           "New Message",       "Refresh",
                       "Ring Doorbell", "Set Location Note", "Set your Status"};
    const QStringList bar{"DND", "Lunch & coffee with all of us", "Ring Doorbell", "Set Location Note"};
    for (const int points : {8, 20}) {
        const Font font(points);
        Window w;
        for (int width = 300; width <= 1300; width += 50) {
            SCOPED_TRACE(testing::Message() << points << " points, " << width << " wide");
            w.widen(width);
            ASSERT_EQ(w.window.width(), width) << "a bar keeps the window wide";
            QStringList seen = w.reachable(w.ribbon);
            seen.removeAll("File");
            seen.removeAll("Show the tabs alone");
            EXPECT_EQ(seen.join('|').toStdString(), ribbon.join('|').toStdString());
            EXPECT_EQ(w.reachable(w.bar).join('|').toStdString(), bar.join('|').toStdString());
            EXPECT_EQ(w.reachable(w.foot), QStringList({"DND", "Refresh"}));
        }
        // Rights and modes hide commands, and a page brings its own.
        w.commands.setVisible(kRing, false);
        w.ribbon.setCurrentTab(kInbox);
        w.ribbon.setMinimised(true);
        w.settle();
        EXPECT_TRUE(w.told.empty()) << "an owner that says so need not be told";
        EXPECT_FALSE(w.reachable(w.ribbon).contains("Ring Doorbell"));
        EXPECT_FALSE(w.reachable(w.ribbon).contains("Refresh"));
        EXPECT_TRUE(w.reachable(w.ribbon).contains("New Message"));
    }
}

TEST(Bars, EachIsOneStopOfTheTabKeyAndEscapeLeadsBack) {
    Window w;
    w.commands.setEnabled(kQuiet, false);
    w.bar.takeFocus();
    EXPECT_EQ(w.focused(), "Lunch & coffee with all of us");
    w.key(Qt::Key_Right);
    EXPECT_EQ(w.focused(), "Ring Doorbell") << "past a grey one";
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(w.bar.button(kRing))->state().focusable);
    w.key(Qt::Key_Return);
    w.key(Qt::Key_Space);
    EXPECT_THAT(w.told, ElementsAre(kRing, kRing));
    w.key(Qt::Key_Tab);
    EXPECT_TRUE(w.list.hasFocus());
    w.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(w.focused(), "Ring Doorbell") << "it comes back to where it was";
    w.key(Qt::Key_Escape);
    EXPECT_TRUE(w.list.hasFocus());

    w.ribbon.takeFocus();
    w.key(Qt::Key_Down);
    w.key(Qt::Key_Home);
    QStringList walked{w.focused()};
    for (QString at; at != w.focused(); walked.append(w.focused())) {
        at = w.focused();
        w.key(Qt::Key_Right);
    }
    EXPECT_EQ(walked.join('|').toStdString(),
              "File|Set your Status|Set Location Note|Ring Doorbell|New Message|Refresh|Show the tabs "
              "alone|Show the tabs alone");
    w.key(Qt::Key_Escape);
    EXPECT_TRUE(w.list.hasFocus());
    EXPECT_EQ(w.told.size(), 2U) << "looking is not pressing";
}

// A quick status that is set and turned off again by a double click was never seen by anybody.
TEST(Bars, TheSecondClickOfTheMouseIsNoneWhereTheCommandSaysSo) {
    Window w;
    const int before = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(200);
    for (const int id : {kLunch, kRing}) {
        QTest::mouseClick(w.bar.button(id), Qt::LeftButton);
        QTest::mouseDClick(w.bar.button(id), Qt::LeftButton);
        QTest::mouseRelease(w.bar.button(id), Qt::LeftButton);
    }
    EXPECT_THAT(w.told, ElementsAre(kLunch, kRing, kRing));
    QTest::qWait(250);
    QTest::mouseClick(w.bar.button(kLunch), Qt::LeftButton);
    w.bar.takeFocus();
    w.key(Qt::Key_Space);
    EXPECT_EQ(w.told.size(), 5U) << "the keyboard means each press";
    QApplication::setDoubleClickInterval(before);
}

TEST(Bars, TheTabsTellAndAreMinimisedByTheCurrentOne) {
    Window w;
    w.commands.setVisible(kLists, false);
    w.key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(w.ribbon.currentTab(), kInbox) << "past a hidden one";
    w.key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_THAT(w.told, ElementsAre(kInbox, kHome));
    w.commands.setCaption(kHome, "Home (12)");
    EXPECT_EQ(w.tabs().tabText(0), "Home (12)");

    const auto doubleClick = [&](int at) {
        QTest::mouseClick(&w.tabs(), Qt::LeftButton, {}, w.tabs().tabRect(at).center());
        QTest::mouseDClick(&w.tabs(), Qt::LeftButton, {}, w.tabs().tabRect(at).center());
    };
    doubleClick(2);
    EXPECT_FALSE(w.ribbon.isMinimised()) << "many click twice where once is enough";
    doubleClick(2);
    EXPECT_TRUE(w.ribbon.isMinimised());
    w.key(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(w.ribbon.isMinimised());
}

// Names of others stand on bars; a press alone changes no check, since its owner may have refused.
TEST(Bars, ShowWhatTheSetSaysAndNoMore) {
    Window w;
    EXPECT_EQ(w.bar.button(kLunch)->text(), "Lunch && coffee with all …");
    EXPECT_EQ(w.bar.button(kLunch)->accessibleName(), "Lunch & coffee with all of us");
    EXPECT_TRUE(w.tipOf(w.bar.button(kLunch)).contains("with all of us"));
    EXPECT_TRUE(w.tipOf(w.bar.button(kRing)).contains("&lt;b&gt;Send"));
    QTest::mouseClick(w.ribbon.button(kQuiet), Qt::LeftButton);
    EXPECT_FALSE(w.ribbon.button(kQuiet)->isChecked());
    w.commands.setChecked(kQuiet, true);
    EXPECT_TRUE(w.ribbon.button(kQuiet)->isChecked() && w.bar.button(kQuiet)->isChecked());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&w.bar)->role(), QAccessible::ToolBar);

    auto* const text = w.foot.findChild<QLabel*>();
    w.foot.setFooter("  Online\nnow", "All & <b>well</b>");
    EXPECT_EQ(w.foot.footer(), "  Online now");
    EXPECT_TRUE(w.tipOf(text).contains("&lt;b&gt;well"));
    w.foot.setFooter(QString(5000, 'w') + "<img>");
    w.settle();
    EXPECT_EQ(w.window.width(), 1000);
    EXPECT_TRUE(w.tipOf(text).contains("www"));
}

// The first picture of the window would wait for all icons to be drawn.
TEST(Bars, AskForNoIconBeforeTheyHaveBeenPainted) {
    Window w;
    CommandSet commands({{kRing, "Ring", {}, 4}, {kNote, "Note", {}, 3}});
    int asked = 0;
    commands.setIconProvider([&asked](int) {
        ++asked;
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        return QIcon(picture);
    });
    CommandBar bar(commands, {kRing, kNote}, "Bar");
    const int width = bar.sizeHint().width();
    EXPECT_EQ(asked, 0);
    bar.grab();
    w.settle();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(bar.sizeHint().width(), width) << "nothing moves when they come";
}
