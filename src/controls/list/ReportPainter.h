// Draws the rows of a report list.
#pragma once

#include "controls/list/ReportOrder.h"
#include "controls/look/PaintKit.h"

#include <QRect>

#include <vector>

namespace tessel {

class ReportPainter {
public:
    // The room of one column, without its height.
    struct Span {
        const ReportColumn* column = nullptr;
        int left = 0;
        int width = 0;
        Qt::Alignment alignment; // as seen: left is left
        bool below = false;      // on a line of its own, under the name
    };
    // The lines that a row has beside its first one.
    struct Lines {
        bool status = false;
        bool preview = false;
    };
    struct Row {
        const ReportRecord* record = nullptr;
        QRect rect;
        Lines lines;
        RowState state;
    };

    explicit ReportPainter(PaintKit& kit) : m_kit(kit) {}

    // The columns must live as long as they are drawn.
    void setSpans(std::vector<Span> spans, int firstText);

    int rowHeight(Lines lines) const;
    void paint(QPainter& painter, const Row& row);

    // The line of a row on which a status stands of its own.
    QRect statusLine(const QRect& row) const;
    // The whole text at this place of the row, when less of it is shown; otherwise empty.
    QString hiddenText(const Row& row, const QPoint& pos) const;

private:
    struct CellRooms {
        QRect block; // where a colour of its own goes
        QRect icon;
        QRect text;
    };

    CellRooms rooms(const Span& span, const QRect& line, const ReportItem& item) const;
    // As wide as it is, and over the place of a badge that this row has not.
    Span reaching(const Span& span, const ReportRecord& record) const;
    QRect lineOf(const Span& span, const Row& row) const;
    QRect firstLine(const QRect& row) const;
    QRect previewRoom(const Row& row) const;
    void paintState(QPainter& painter, const Span& span, const Row& row, const QColor& back);
    void paintAged(QPainter& painter, const Span& span, const Row& row, const QColor& back);
    void paintCell(QPainter& painter, const Span& span, const QRect& line, const ReportItem& item,
                   const QColor& back);
    QColor quiet(const QColor& back);

    PaintKit& m_kit;
    std::vector<Span> m_spans;
    int m_firstText = 0;
};

} // namespace tessel
