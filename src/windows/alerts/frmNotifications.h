// The window "Notifications": what happened at this location, newest first.
#pragma once

#include "controls/look/Images.h"

#include <QMainWindow>

class QToolBar;

namespace tessel {

class CardControl;
class NotificationHistory;
class PromptEdit;
class Settings;

class frmNotifications : public QMainWindow {
    Q_OBJECT
public:
    frmNotifications(Settings& settings, NotificationHistory& history);

private:
    void createList();
    void createBar();
    void askClear();

    Settings& m_settings;
    NotificationHistory& m_history;
    QToolBar* m_bar = nullptr;
    Images m_images;
    PromptEdit* m_filter;
    CardControl* m_list; // rptNotifications
};

// Asks whether all notifications may be deleted, in a window with this caption, and deletes them.
void askToClearRecents(NotificationHistory& history, QWidget* parent, const QString& caption);

} // namespace tessel
