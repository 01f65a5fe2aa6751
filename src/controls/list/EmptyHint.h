// What a list of Qt's own shows while it has no row.
#pragma once

#include "controls/list/EmptyState.h"
#include "controls/look/Images.h"

#include <QWidget>

class QAbstractItemView;

namespace tessel {

class EmptyHint : public QWidget {
    Q_OBJECT
public:
    // Lies over the view's rows, which it belongs to. Hidden until there is something to say.
    explicit EmptyHint(QAbstractItemView* view, const EmptyState& state = {});

    // A screen reader hears both texts.
    void setState(const EmptyState& state);
    const EmptyState& state() const { return m_state; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeLook();

    EmptyState m_state;
    Images m_images;
    PaintKit m_kit;
};

} // namespace tessel
