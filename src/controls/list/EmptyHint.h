// What a list of Qt's own says while it shows no row.
#pragma once

#include <QLabel>

class QAbstractItemView;

namespace tessel {

class EmptyHint : public QLabel {
    Q_OBJECT
public:
    // Lies over the view's rows, which it belongs to. Hidden until there is a text.
    explicit EmptyHint(QAbstractItemView* view);

    // Plain text; empty for none.
    void setHint(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
};

} // namespace tessel
