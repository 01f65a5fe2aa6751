// An office as the pictures show it: one station with its real windows, and nineteen others of which it
// has heard. Its clock stands, and nothing in it is left to chance.
#pragma once

#include "controls/popup/PopupControl.h"
#include "support/gui_forms.h"
#include "windows/alerts/frmPopups.h"
#include "windows/mainwindow/frmMain.h"

#include <QImage>

#include <memory>

namespace tessel {

class Office {
public:
    // `points`: of the desktop's font and of the lists. `crowded`: others are known.
    Office(bool dark, int points, bool crowded = true);
    ~Office();

    // The main window, as large as asked.
    frmMain& window(QSize size);
    QImage picture();
    // Three popups, each as its packet brings it up.
    QImage popup(PopupId popup);
    void hear(const QString& code, const QString& body, const QString& from = {});
    WorldStation& me() { return m_world[0]; }
    static void settle();

private:
    void meet();

    World m_world{1};
    MemoryRegistry m_registry;
    std::unique_ptr<frmMain> m_form;
    PopupWindows m_popups{[](const QString&, const QString&) {}};
};

} // namespace tessel
