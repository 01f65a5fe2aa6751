#include "controls/edit/ColorTagPicker.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

struct Picker {
    Picker() : picker(std::vector<QColor>(20, QColor(Qt::red)), QStringLiteral("None")) {
        picker.show();
        picker.activateWindow();
        QApplication::processEvents();
    }
    QAbstractButton* button(int index) { return picker.findChildren<QAbstractButton*>().at(index + 1); }
    void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    ColorTagPicker picker;
};

} // namespace

// By keyboard alone, every colour and the choice of none must be within reach.
TEST(ColorTagPicker, ArrowsWalkTheGridAndItsEdges) {
    Picker p;
    p.picker.setChosen(0);
    p.button(0)->setFocus();
    p.key(Qt::Key_Right);
    EXPECT_EQ(p.picker.chosen(), 1);
    p.key(Qt::Key_Down);
    EXPECT_EQ(p.picker.chosen(), 11);
    p.key(Qt::Key_Left);
    p.key(Qt::Key_Up);
    EXPECT_EQ(p.picker.chosen(), 0);
    p.picker.setChosen(19);
    p.button(19)->setFocus();
    p.key(Qt::Key_Right);
    EXPECT_EQ(p.picker.chosen(), -1);
    p.key(Qt::Key_Left);
    EXPECT_EQ(p.picker.chosen(), 19);
    EXPECT_EQ(QApplication::focusWidget(), p.button(p.picker.chosen()));
}
