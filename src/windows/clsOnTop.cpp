#include "windows/clsOnTop.h"

#include <QWidget>

namespace tessel {

namespace {

void apply(QWidget& window, bool onTop) {
    if (window.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == onTop) {
        return;
    }
    // A change of the flag takes a window down, so it is put up anew.
    const bool shown = window.isVisible();
    const bool quiet = window.testAttribute(Qt::WA_ShowWithoutActivating);
    window.setAttribute(Qt::WA_ShowWithoutActivating, quiet || !window.isActiveWindow());
    window.setWindowFlag(Qt::WindowStaysOnTopHint, onTop);
    window.setVisible(shown);
    window.setAttribute(Qt::WA_ShowWithoutActivating, quiet);
}

} // namespace

void clsOnTop::MakeTopMost(QWidget& window) {
    apply(window, true);
}

void clsOnTop::MakeNormal(QWidget& window) {
    apply(window, false);
}

void Set_onTop(QWidget& window, bool onTop) {
    if (onTop) {
        clsOnTop::MakeTopMost(window);
    } else {
        clsOnTop::MakeNormal(window);
    }
}

} // namespace tessel
