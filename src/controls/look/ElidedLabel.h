// A text in one line that is cut where it has no room; its tip tells the whole then.
#pragma once

#include <QLabel>

namespace tessel {

class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    // A few letters are all the room that it insists on.
    explicit ElidedLabel(QWidget* parent = nullptr);

    // Plain texts of any origin and length. The tip comes behind a text that is cut.
    void setLine(const QString& text, const QString& tip = {});
    // What it takes to show all, in pixels.
    int wholeWidth() const;
    bool isCut() const { return wholeWidth() > width(); }

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_tip;
};

} // namespace tessel
