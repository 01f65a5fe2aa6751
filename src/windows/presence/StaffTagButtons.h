// The ten buttons of the staff tags, of which at most one is down.
#pragma once

#include "controls/look/Images.h"

#include <QWidget>

#include <vector>

class QToolButton;

namespace tessel {

class StaffTagButtons : public QWidget {
    Q_OBJECT
public:
    explicit StaffTagButtons(QWidget* parent = nullptr);

    // Shows the button of this tag down, 30 to 39; any other number: none.
    void setTag(int tag);

signals:
    // A button was clicked: the tag that is wanted now, 0 when it was the one that is down.
    void tagChosen(int tag);

protected:
    void changeEvent(QEvent* event) override;

private:
    void LoadStaffTags();

    Images m_images;
    std::vector<QToolButton*> m_buttons; // StaffTag
    int m_tag = 0;
};

} // namespace tessel
