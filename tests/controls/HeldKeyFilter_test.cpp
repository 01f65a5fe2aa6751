// A key that is held while windows open and close under it must not ring, send or press anything there.
#include "controls/edit/HeldKeyFilter.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

// Counts the presses that get through to it.
class Counter : public QLineEdit {
public:
    int presses = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        ++presses;
        QLineEdit::keyPressEvent(event);
    }
};

class HeldKeys : public testing::Test {
protected:
    HeldKeys() {
        auto* const layout = new QVBoxLayout(&window);
        layout->addWidget(&list);
        layout->addWidget(&box);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        list.setFocus();
    }
    // As the window system hands it in.
    void send(QTest::KeyAction action, Qt::Key key = Qt::Key_Return) {
        QTest::qSleep(2); // no two of the same millisecond, unless they are meant to be
        QTest::keyEvent(action, window.windowHandle(), key);
    }

    HeldKeyFilter filter;
    QWidget window;
    Counter list;
    Counter box;
};

} // namespace

TEST_F(HeldKeys, RepeatsReachNoOtherWidgetUntilTheKeyWasReleased) {
    for (const Qt::Key key :
         {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F1, Qt::Key_F9, Qt::Key_Escape}) {
        list.setFocus();
        list.presses = box.presses = 0;
        send(QTest::Press, key);
        send(QTest::Press, key);
        EXPECT_EQ(list.presses, 2) << "repeats where it went down are the widget's own affair";
        box.setFocus();
        send(QTest::Press, key);
        send(QTest::Press, Qt::Key_Shift);
        send(QTest::Press, key);
        EXPECT_EQ(box.presses, 1) << "the modifier alone";
        list.setFocus();
        send(QTest::Press, key);
        EXPECT_EQ(list.presses, 3);
        box.setFocus();
        send(QTest::Release, key);
        send(QTest::Press, key);
        EXPECT_EQ(box.presses, 2) << "a press of its own";
        send(QTest::Release, key);
    }
}

TEST_F(HeldKeys, ARepeatToldAsReleaseAndPressIsARepeat) {
    send(QTest::Press);
    const auto at = [this](QEvent::Type type, Qt::Key key, quint64 moment) {
        QKeyEvent event(type, key, Qt::NoModifier);
        event.setTimestamp(moment);
        QApplication::sendEvent(window.windowHandle(), &event);
    };
    const quint64 far = quint64{1} << 40U; // beyond any moment of the events above
    at(QEvent::KeyRelease, Qt::Key_Return, far);
    box.setFocus();
    at(QEvent::KeyPress, Qt::Key_Return, far);
    EXPECT_EQ(box.presses, 0);
    at(QEvent::KeyPress, Qt::Key_Return, far + 40);
    EXPECT_EQ(box.presses, 0);
    at(QEvent::KeyPress, Qt::Key_Return, far + 10000);
    EXPECT_EQ(box.presses, 1) << "so long after, the release was lost";
}

// Ctrl+P, held, would open a window and at once press what has the same key in it.
TEST_F(HeldKeys, AHeldShortcutStaysInItsWindow) {
    QWidget other;
    other.show();
    const auto isShortcut = [](QWidget& in, quint64 moment) {
        QApplication::setActiveWindow(&in); // while the program stays the active one
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_P, Qt::ControlModifier);
        event.setTimestamp(moment);
        event.ignore();
        QApplication::sendEvent(in.windowHandle(), &event);
        return !event.isAccepted(); // else it is a key like any other, and nobody's
    };
    const quint64 start = quint64{1} << 40U; // beyond any moment of the events above
    EXPECT_TRUE(isShortcut(window, start));
    EXPECT_TRUE(isShortcut(window, start + 500)) << "there it may repeat";
    EXPECT_FALSE(isShortcut(other, start + 530));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_P, Qt::NoModifier);
    release.setTimestamp(start + 560);
    QApplication::sendEvent(other.windowHandle(), &release);
    EXPECT_FALSE(isShortcut(other, start + 560)) << "a repeat told as release and press";
    release.setTimestamp(start + 600);
    QApplication::sendEvent(other.windowHandle(), &release);
    EXPECT_TRUE(isShortcut(other, start + 700)) << "a press of its own";
}

// A window that closed on the key may leave the keyboard to none.
TEST_F(HeldKeys, ARepeatWithoutAnyFocusIsNobodys) {
    list.hide();
    box.setFocusPolicy(Qt::NoFocus);
    box.clearFocus();
    QApplication::setActiveWindow(nullptr);
    struct : QObject {
        int presses = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            presses += event->type() == QEvent::KeyPress ? 1 : 0;
            return false;
        }
    } watch;
    window.installEventFilter(&watch);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier, {}, true);
    QApplication::sendEvent(window.windowHandle(), &repeat);
    EXPECT_EQ(watch.presses, 0);
    window.removeEventFilter(&watch);
}

TEST_F(HeldKeys, ARepeatThatIsNotMarkedAsOneIsDroppedWhereItWentDown) {
    int switched = 0;
    const auto at = [this, &switched](QEvent::Type type, quint64 moment, bool marked = false) {
        const int before = list.presses;
        QKeyEvent event(type, Qt::Key_F2, Qt::NoModifier, {}, marked);
        event.setTimestamp(moment);
        QApplication::sendEvent(window.windowHandle(), &event);
        switched += !marked ? list.presses - before : 0;
    };
    const quint64 start = quint64{1} << 40U;
    at(QEvent::KeyPress, start);
    for (const quint64 moment : {start + 600, start + 640, start + 680}) {
        at(QEvent::KeyRelease, moment);
        at(QEvent::KeyPress, moment);
    }
    at(QEvent::KeyRelease, start + 720, true);
    at(QEvent::KeyPress, start + 720, true);
    EXPECT_EQ(switched, 1);
    EXPECT_EQ(list.presses, 2) << "what is marked as a repeat passes";
    at(QEvent::KeyRelease, start + 800);
    at(QEvent::KeyPress, start + 830);
    EXPECT_EQ(switched, 2) << "a press of its own, however soon";
}

// Enter on a row opens a window, and the release goes to the window behind it, where nobody hears of it.
// What is typed then and sent with Enter must be sent.
TEST_F(HeldKeys, AKeyAfterAnotherOneIsAPressOfItsOwn) {
    send(QTest::Press);
    box.setFocus();
    send(QTest::Press);
    EXPECT_EQ(box.presses, 0);
    send(QTest::Press, Qt::Key_A);
    send(QTest::Press);
    EXPECT_EQ(box.presses, 2);
}

TEST_F(HeldKeys, AnInactiveApplicationForgets) {
    send(QTest::Press);
    emit qApp->applicationStateChanged(Qt::ApplicationInactive);
    box.setFocus();
    send(QTest::Press);
    EXPECT_EQ(box.presses, 1);
}
