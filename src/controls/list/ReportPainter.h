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
        int item = 0;
        int left = 0;
        int width = 0;
        Qt::Alignment alignment; // as seen: left is left
    };
    struct Row {
        const ReportRecord* record = nullptr;
        QRect rect;
        bool preview = false;
        RowState state;
    };

    explicit ReportPainter(PaintKit& kit) : m_kit(kit) {}

    void setSpans(std::vector<Span> spans, int firstText);

    int rowHeight(bool preview) const;
    void paint(QPainter& painter, const Row& row);

    // The whole text at this place of the row, when less of it is shown; otherwise empty.
    QString hiddenText(const Row& row, const QPoint& pos) const;

private:
    struct CellRooms {
        QRect block; // where a colour of its own goes
        QRect icon;
        QRect text;
    };

    CellRooms rooms(const Span& span, const QRect& line, const ReportItem& item) const;
    QRect firstLine(const Row& row) const;
    QRect previewRoom(const Row& row) const;
    void paintCell(QPainter& painter, const Span& span, const QRect& line, const ReportItem& item,
                   const QColor& back);

    PaintKit& m_kit;
    std::vector<Span> m_spans;
    int m_firstText = 0;
};

} // namespace tessel
