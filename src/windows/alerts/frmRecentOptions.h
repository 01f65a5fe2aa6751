// The dialog "Notification List Options": which events the history keeps.
#pragma once

#include <QDialog>

namespace tessel {

class NotificationHistory;
class Settings;

class frmRecentOptions : public QDialog {
    Q_OBJECT
public:
    frmRecentOptions(Settings& settings, NotificationHistory& history, QWidget* parent = nullptr);
};

} // namespace tessel
