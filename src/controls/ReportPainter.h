// Draws the rows of a report list.
#pragma once

#include "controls/ReportOrder.h"

#include <QCache>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <QStaticText>

#include <functional>
#include <vector>

class QPainter;

namespace tessel {

using ReportIconProvider = std::function<QIcon(int icon)>;

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
        bool selected = false;
        bool focused = false; // the list has the keyboard
        bool hovered = false;
    };

    ReportPainter();

    void setFont(const QFont& font);
    void setPalette(const QPalette& palette);
    void setIconProvider(ReportIconProvider provider);
    void setSpans(std::vector<Span> spans, int firstText);

    int rowHeight(bool preview) const;
    void paint(QPainter& painter, const Row& row);

    // The whole text at this place of the row, when less of it is shown; otherwise empty.
    QString hiddenText(const Row& row, const QPoint& pos) const;

private:
    struct Line {
        QStaticText text;
        double width = 0;
    };
    struct LineKey {
        QString text;
        int width = 0;
        bool small = false;
        bool operator==(const LineKey&) const = default;
        friend size_t qHash(const LineKey& key, size_t seed) {
            return qHashMulti(seed, key.text, key.width, key.small);
        }
    };
    struct CellRooms {
        QRect block; // where a colour of its own goes
        QRect icon;
        QRect text;
    };

    CellRooms rooms(const Span& span, const QRect& line, const ReportItem& item) const;
    QRect firstLine(const Row& row) const;
    QRect previewRoom(const Row& row) const;
    QColor rowBack(const Row& row) const;
    QColor ink(const QColor& text, const QColor& back);
    void paintCell(QPainter& painter, const Span& span, const QRect& line, const ReportItem& item,
                   const QColor& back);
    void paintIcon(QPainter& painter, int icon, const QRect& room);
    void paintText(QPainter& painter, const QString& text, const QRect& room, Qt::Alignment alignment,
                   bool small);
    const Line& lineFor(const QString& text, int width, bool small);

    QFont m_font;
    QFont m_smallFont;
    int m_lineHeight = 0;
    int m_smallHeight = 0;
    int m_iconSize = 16;
    QPalette m_palette;
    ReportIconProvider m_icons;
    std::vector<Span> m_spans;
    int m_firstText = 0;

    QCache<LineKey, Line> m_lines;
    QHash<int, QPixmap> m_pictures;
    double m_pictureRatio = 0;
    QHash<quint64, QColor> m_inks; // by text and background
};

} // namespace tessel
