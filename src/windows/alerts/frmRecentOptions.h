// The dialog "Notification List Options": which events the history keeps.
#pragma once

#include <QDialog>

namespace tessel {

class Station;

class frmRecentOptions : public QDialog {
    Q_OBJECT
public:
    explicit frmRecentOptions(Station& station, QWidget* parent = nullptr);
};

} // namespace tessel
