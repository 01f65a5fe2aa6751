// Something that comes up by itself, as a screen reader learns of it.
#pragma once

#include <QWidget>

namespace tessel {

class AlertWidget : public QWidget {
    Q_OBJECT
protected:
    explicit AlertWidget(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    // Has the accessible name read out now.
    void tellAlert();
};

} // namespace tessel
