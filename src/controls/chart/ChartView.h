// What all charts have in common: their points as a table, for keys, screen readers and the clipboard.
#pragma once

#include "records/cChartSeries.h"

#include <QAbstractItemView>
#include <QColor>

namespace tessel {

class ChartModel;

// The arrow keys go from point to point, and the point that has the focus is read out in the chart's own
// line; the mouse does the same. A screen reader sees a table of names and values, and Ctrl+C copies it.
class ChartView : public QAbstractItemView {
    Q_OBJECT
public:
    explicit ChartView(QWidget* parent = nullptr);

    void setSeries(const ChartSeries& series);
    const ChartSeries& series() const;
    // By name; see ChartPalette.h.
    void setChartPalette(const QString& name);
    // What stands there when there is nothing to see.
    void setEmptyText(const QString& text);
    // The table as text, a point a line, with tabs.
    QString copyText() const;
    void copy() const;

    QModelIndex indexAt(const QPoint& point) const override;
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QSize sizeHint() const override;

signals:
    // A point was clicked, or Enter pressed on it.
    void pointChosen(int point);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override { return 0; }
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    void setSelection(const QRect&, QItemSelectionModel::SelectionFlags) override {}
    QRegion visualRegionForSelection(const QItemSelection&) const override { return {}; }

    // The share of a chart's kind. `room`: below the title.
    virtual void paintPoints(QPainter& painter, const QRect& room) = 0;
    virtual int pointAt(const QPoint& place, const QRect& room) const = 0;
    virtual QRect pointRect(int point, const QRect& room) const = 0;
    // How far the page keys go.
    virtual int pageStep() const { return 1; }
    virtual QSize leastRoom() const = 0;

    int count() const;
    const ChartPoint& point(int index) const;
    QColor color(int index) const;
    // The point under the mouse, or else the one that has the keyboard; -1 for none.
    int shownPoint() const;
    QString pointText(int index) const;
    QFont titleFont() const;
    QRect room() const;

private:
    int titleLines() const;
    void setHovered(int point);

    ChartModel* m_model;
    QString m_palette;
    QString m_emptyText;
    int m_hovered = -1;
};

} // namespace tessel
