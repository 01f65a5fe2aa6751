// The window "Notifications": what happened at this location, newest first.
#pragma once

#include "controls/look/Images.h"

#include <QMainWindow>

namespace tessel {

class CardControl;
class PromptEdit;
class Station;

class frmNotifications : public QMainWindow {
    Q_OBJECT
public:
    explicit frmNotifications(Station& station);

private:
    void createList();
    void createBar();
    void askClear();

    Station& m_station;
    Images m_images;
    PromptEdit* m_filter;
    CardControl* m_list; // rptNotifications
};

// Asks whether all notifications may be deleted, in a window with this caption, and deletes them.
void askToClearRecents(Station& station, QWidget* parent, const QString& caption);

} // namespace tessel
