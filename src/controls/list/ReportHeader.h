// The header of a report list: flat, with a small arrow at the column that sorts. It owns the
// columns' widths.
#pragma once

#include "controls/list/ReportOrder.h"

#include <QHeaderView>

#include <vector>

namespace tessel {

class ReportHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit ReportHeader(QWidget* parent = nullptr);

    // The model must have the visible ones of these columns already.
    void setColumns(std::vector<ReportColumn> columns);
    const std::vector<ReportColumn>& columns() const { return m_columns; }
    // Gives each column its width times `scale`, and what is left of `room` to those with a share or to
    // the stretching one. Where the room is too little all give way: nothing is ever beside it.
    // `stacked`: the aged text has no column of its own.
    void fit(int room, double scale, bool stacked);
    // Marks the state slot while the list is narrowed by it.
    void setStateFiltered(bool filtered);
    void showSort(const std::vector<SortKey>& keys);
    // The column of a section.
    const ReportColumn& shown(int section) const;

signals:
    // The user dragged a section: `columns` has its new width.
    void widthDragged();
    // The header of the state slot was clicked.
    void stateClicked(QPoint globalPos);

protected:
    bool viewportEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    int scaled(int width) const;
    int stretching() const;
    std::vector<int> wanted(int room, bool stacked) const;
    void squeeze(std::vector<int>& widths, int over) const;
    bool isState(int section) const;
    void noteDrag(int section, int width);
    void paintStateMark(QPainter& painter, const QRect& section, const QColor& ink) const;

    std::vector<ReportColumn> m_columns;
    std::vector<std::size_t> m_shown; // by section: index of its column
    double m_scale = 1;
    bool m_fitting = false;
    bool m_stateFiltered = false;
};

} // namespace tessel
