// A walk through every window there is: by Tab over all that takes the keyboard, and out by Escape.
#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportColors.h"
#include "controls/look/OfficeLook.h"
#include "support/gui_forms.h"
#include "windows/FormDesktop.h"
#include "windows/WindowTable.h"
#include "windows/alerts/frmGroups.h"
#include "windows/alerts/frmOffline.h"
#include "windows/dialogs/frmPreview.h"
#include "windows/mainwindow/frmMain.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMenuBar>
#include <QTabWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

using namespace tessel;

namespace {

constexpr int kMostSteps = 200;
constexpr int kFocusMs = 60; // a little longer than a window waits before it gives a field the keyboard
constexpr int kOverlap = 6;  // pixels by which a row may reach into the next
constexpr int kAround = 4;   // pixels around a control in which its focus shows
constexpr int kLeastDots = 8;
constexpr double kSeen = 1.5; // contrast of a dot with and without

using Stops = std::vector<QWidget*>;

std::string nameOf(const QWidget& widget) {
    const QString name = widget.objectName().isEmpty() ? widget.accessibleName() : widget.objectName();
    const QVariant text = widget.property("text");
    return QStringLiteral("%1 %2 '%3'")
        .arg(QLatin1String(widget.metaObject()->className()), name, text.toString())
        .toStdString();
}

QRect placeIn(const QWidget& widget, const QWidget& all) {
    return {widget.mapTo(&all, QPoint()), widget.size()};
}

bool isStop(const QWidget& widget, const QWidget& window) {
    return widget.window() == &window && widget.isVisible() && widget.isEnabled() &&
           (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr &&
           qobject_cast<const QAbstractSpinBox*>(widget.parentWidget()) == nullptr;
}

Stops stopsOf(QWidget& window) {
    Stops stops;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        if (isStop(*widget, window)) {
            stops.push_back(widget);
        }
    }
    return stops;
}

// What holds the widget among the parts of what holds them all.
const QWidget& partOf(const QWidget& widget, const QWidget& all) {
    const QWidget* part = &widget;
    while (part->parentWidget() != &all) {
        part = part->parentWidget();
    }
    return *part;
}

const QWidget& commonOf(std::span<QWidget* const> stops) {
    const QWidget* common = stops.front()->parentWidget();
    while (!std::ranges::all_of(
        stops, [&](const QWidget* stop) { return common != stop && common->isAncestorOf(stop); })) {
        common = common->parentWidget();
    }
    return *common;
}

// Whether the eye goes so: a window is read in rows from top to bottom, a row from left to right. Parts that
// stand beside each other are read one after the other where no line goes between their rows, or where each
// is a box of its own.
bool readsWell(std::span<QWidget* const> stops) {
    if (stops.size() < 2) {
        return true;
    }
    const QWidget& common = commonOf(stops);
    std::vector<QRect> places; // what is scrolled out of sight stands where it is scrolled
    std::vector<const QWidget*> parts;
    for (const QWidget* const stop : stops) {
        const QWidget& part = partOf(*stop, common);
        const QRect shown = placeIn(*stop, common) & placeIn(part, common);
        places.push_back(shown.isEmpty() ? placeIn(part, common) : shown);
        parts.push_back(&part);
    }
    const auto most = [&places](std::size_t from, std::size_t to, auto edge) {
        int found = edge(places[from]);
        for (std::size_t i = from; i < to; ++i) {
            found = std::max(found, edge(places[i]));
        }
        return found;
    };
    const auto top = [](const QRect& place) { return -place.top(); };
    const auto bottom = [](const QRect& place) { return place.bottom(); };
    const auto left = [](const QRect& place) { return -place.left(); };
    const auto right = [](const QRect& place) { return place.right(); };
    for (std::size_t at = 1; at < stops.size(); ++at) {
        if (most(0, at, bottom) < -most(at, stops.size(), top) + kOverlap) {
            return readsWell(stops.first(at)) && readsWell(stops.subspan(at));
        }
    }
    std::vector<QRect> rows = places;
    std::ranges::sort(rows, {}, [](const QRect& place) { return place.top(); });
    bool line = false; // from side to side, between two rows
    int lowest = rows.front().bottom();
    for (const QRect& row : rows) {
        line = line || row.top() > lowest - kOverlap;
        lowest = std::max(lowest, row.bottom());
    }
    for (std::size_t at = 1; at < stops.size(); ++at) {
        const auto half = parts.begin() + static_cast<std::ptrdiff_t>(at);
        const bool boxes = std::none_of(parts.begin(), half, [&](auto* part) {
            return std::find(half, parts.end(), part) != parts.end();
        });
        if (most(0, at, right) < -most(at, stops.size(), left) + kOverlap && (boxes || !line)) {
            return readsWell(stops.first(at)) && readsWell(stops.subspan(at));
        }
    }
    return false;
}

// Dots around the widget that tell it from how it looks without the keyboard.
int focusDots(QWidget& window, QWidget& widget) {
    const QRect place = placeIn(widget, window).adjusted(-kAround, -kAround, kAround, kAround);
    QWidget* const focus = window.focusWidget();
    const QImage with = window.grab(place).toImage();
    focus->clearFocus();
    const QImage without = window.grab(place).toImage();
    focus->setFocus(Qt::TabFocusReason);
    int dots = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            const bool differs = with.pixel(x, y) != without.pixel(x, y) &&
                                 contrastRatio(with.pixelColor(x, y), without.pixelColor(x, y)) >= kSeen;
            dots += differs ? 1 : 0;
        }
    }
    return dots;
}

// Of two that have the same letter Alt presses neither.
void expectLettersOfTheirOwn(const QWidget& window) {
    QMap<QString, QString> taken;
    const auto take = [&taken](const QString& caption) {
        const QString letter = QKeySequence::mnemonic(caption).toString();
        if (!letter.isEmpty()) {
            EXPECT_FALSE(taken.contains(letter))
                << letter.toStdString() << " is that of " << taken[letter].toStdString() << " and of "
                << caption.toStdString();
            taken[letter] = caption;
        }
    };
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible()) {
            continue;
        }
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
            take(button->text());
        } else if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
            take(label->buddy() != nullptr ? label->text() : QString());
        } else if (const auto* const box = qobject_cast<const QGroupBox*>(widget)) {
            take(box->title());
        } else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                take(tabs->isTabVisible(tab) ? tabs->tabText(tab) : QString());
            }
        } else if (const auto* const menus = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* const menu : menus->actions()) {
                take(menu->text());
            }
        }
    }
}

void settle() {
    for (int turn = 0; turn < 3; ++turn) {
        QApplication::processEvents();
    }
}

class WindowWalk : public testing::Test {
protected:
    WindowWalk() {
        qputenv("TESSEL_THEME", "light");
        SetStyle();
        QApplication::setCursorFlashTime(0);
        world[0].addTones();
        world.settle();
        windows.setStation(me());
        me().presence.SetOccupiedStatusRemote(true, QStringLiteral("Miller"));
        me().actions.AddtoFavoriteList(*me().views.rptEndpoints.find(world[1]->own.SID));
        windows.show({WindowId::Main});
        QApplication::setActiveWindow(windows.mainWindow());
        settle();
    }
    ~WindowWalk() override { windows.unloadForms(); }
    Station& me() { return *world[0].station; }

    // Tab from the first that takes the keyboard, round to there again.
    static void walkPage(QWidget& window) {
        expectLettersOfTheirOwn(window);
        const Stops all = stopsOf(window);
        if (all.empty()) {
            return;
        }
        window.setAttribute(Qt::WA_KeyboardFocusChange); // as after any key
        all.front()->setFocus(Qt::TabFocusReason);
        Stops walked;
        Stops seen; // the same, or what they hand the keyboard to
        for (int step = 0; step < kMostSteps; ++step) {
            // A bar hands the keyboard to one of its buttons.
            QWidget* const focus = window.focusWidget();
            auto stop = std::ranges::find(all, focus);
            if (stop == all.end()) {
                stop = std::ranges::find_if(all, [focus](auto* each) { return each->isAncestorOf(focus); });
            }
            if (stop == all.end()) {
                ADD_FAILURE() << "Tab leads to " << (focus != nullptr ? nameOf(*focus) : "nothing");
                break;
            }
            if (!walked.empty() && *stop == walked.front()) {
                break;
            }
            walked.push_back(*stop);
            seen.push_back(focus);
            EXPECT_GE(focusDots(window, **stop), kLeastDots) << "no focus to be seen on " << nameOf(**stop);
            QTest::keyClick(focus, Qt::Key_Tab);
            settle();
        }
        for (const QWidget* const stop : all) {
            EXPECT_TRUE(std::ranges::find(walked, stop) != walked.end())
                << "Tab does not reach " << nameOf(*stop);
        }
        // Where the round begins is the window's own affair.
        bool well = false;
        for (std::size_t turn = 0; turn < seen.size() && !well; ++turn) {
            well = readsWell(seen);
            std::rotate(seen.begin(), seen.begin() + 1, seen.end());
        }
        if (!well) {
            ADD_FAILURE() << "the order is not that of the eye";
            for (const QWidget* const stop : seen) {
                const QRect place = placeIn(*stop, window);
                std::cout << "  " << place.left() << ',' << place.top() << ' ' << place.width() << 'x'
                          << place.height() << ' ' << nameOf(*stop) << '\n';
            }
        }
    }

    static void walk(QWidget& window) {
        QApplication::setActiveWindow(&window);
        QTest::qWait(kFocusMs);
        walkPage(window);
        for (QTabWidget* const tabs : window.findChildren<QTabWidget*>()) {
            const int first = tabs->currentIndex();
            for (int page = 0; page < tabs->count(); ++page) {
                if (page != first && tabs->isTabEnabled(page)) {
                    SCOPED_TRACE(tabs->tabText(page).toStdString());
                    tabs->setCurrentIndex(page);
                    settle();
                    walkPage(window);
                }
            }
            tabs->setCurrentIndex(first);
        }
    }

    static void escape(QWidget& window) {
        const QPointer<QWidget> open(&window);
        const auto press = [&window] {
            QWidget* const focus = window.focusWidget();
            QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_Escape);
            settle();
        };
        for (const QPointer<PromptEdit> search : window.findChildren<PromptEdit*>()) {
            if (!search->isVisible() || !search->isEnabled()) {
                continue;
            }
            search->setFocus();
            search->setText(QStringLiteral("room"));
            press();
            ASSERT_TRUE(open && open->isVisible()) << "the first Escape ends the search";
            EXPECT_EQ(search->text(), "");
        }
        press();
        EXPECT_TRUE(!open || !open->isVisible()) << "Escape does not close it";
        if (open) {
            open->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    World world{4};
    MemoryRegistry registry;
    FormWindows windows{registry};
};

} // namespace

// Who works without a mouse reaches everything, sees where she is, and gets out again.
TEST_F(WindowWalk, EveryWindowByKeyboardAlone) {
    for (std::size_t index = 0; index < kWindowCount; ++index) {
        const auto id = static_cast<WindowId>(index);
        SCOPED_TRACE(windowRow(id).form);
        windows.show({.window = id, .SID = world[1]->own.SID});
        settle();
        QWidget* const window = windows.window(id);
        ASSERT_NE(window, nullptr);
        walk(*window);
        if (id != WindowId::Main) {
            escape(*window);
        }
    }
}

TEST_F(WindowWalk, AlsoThoseThatOpenFromOthers) {
    QWidget* const main = windows.mainWindow();
    const std::pair<const char*, QDialog*> others[] = {
        {"frmGroups", new frmGroups(me().groups, me().endpoints.records(), me().own.SID, 0, main)},
        {"frmOffline", new frmOffline({QStringLiteral("Room 9")}, QStringLiteral("Rooms"), main)},
        {"frmPreview",
         new frmPreview(PrintDocument{QStringLiteral("Message"), {{.text = QStringLiteral("A")}}}, main)},
    };
    for (const auto& [name, dialog] : others) {
        SCOPED_TRACE(name);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->show();
        walk(*dialog);
        escape(*dialog);
    }
}
