// Draws the cards of a card list.
#pragma once

#include "controls/look/PaintKit.h"
#include "records/cReportRecords.h"

#include <QRect>

class QPainter;

namespace tessel {

// Where a card finds its parts: indexes of items, -1 for a part that it has not.
struct CardItems {
    int heading = 0;      // its icon stands before it
    int headingName = -1; // goes on after the heading, in its own colour
    int text = -1;
    int stamp = -1;
    int border = -1; // its back colour
    int whole = -1;  // a text of which `text` is the beginning: searched and copied, not shown
};

class CardPainter {
public:
    explicit CardPainter(PaintKit& kit) : m_kit(kit) {}

    void setItems(const CardItems& items) { m_items = items; }
    const CardItems& items() const { return m_items; }
    void setRightToLeft(bool rightToLeft) { m_rightToLeft = rightToLeft; }

    // What a card needs, with the gap around it, in a list that is `width` wide.
    int height(const ReportRecord& record, int width);
    // About as much, without a look at its text's letters.
    int likelyHeight(const ReportRecord& record, int width) const;
    // `room` as wide as the list. A card that grew since it was measured shows what fits.
    void paint(QPainter& painter, const ReportRecord& record, const QRect& room, const RowState& state);
    // The whole heading or text under `pos`, when less of it is to be seen.
    QString hiddenText(const ReportRecord& record, const QRect& room, QPoint pos);

private:
    const QString& textOf(const ReportRecord& record) const;
    int textWidth(int width) const;
    int headHeight() const;
    int footHeight() const;
    int around(bool text) const; // all that is not text
    QRect headingRoom(const ReportRecord& record, const QRect& card) const;
    QColor borderOf(const ReportRecord& record, const QColor& back);
    void paintHeading(QPainter& painter, const ReportRecord& record, const QRect& card, const QColor& back);
    void paintFoot(QPainter& painter, const ReportRecord& record, const QRect& card, const QColor& back);
    QRect seen(const QRect& part, const QRect& card) const;

    PaintKit& m_kit;
    CardItems m_items;
    bool m_rightToLeft = false;
};

// Heading, text and stamp, a line each; the whole text where there is one.
QString cardText(const ReportRecord& record, const CardItems& items);
QString wholeCardText(const ReportRecord& record, const CardItems& items);

} // namespace tessel
