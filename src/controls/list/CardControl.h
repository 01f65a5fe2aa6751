// A list of cards in the order of its records: what happened, the newest first as the owner has it.
#pragma once

#include "controls/list/CardPainter.h"
#include "controls/list/ReportView.h"

#include <cstdint>
#include <vector>

namespace tessel {

class CardOrder;

class CardControl : public ReportView {
    Q_OBJECT
public:
    explicit CardControl(QWidget* parent = nullptr);

    // The filter looks in heading, name, the whole text and stamp.
    void setCardItems(const CardItems& items);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
    std::vector<int> rowHeights(const std::vector<int>& movedTo) override;
    bool heightsChanged(const ReportOrder::Synced& synced) const override;
    void paintRow(QPainter& painter, int row) override;
    void applyFont() override;
    QString hiddenText(const QModelIndex& index, const QPoint& pos) const override;
    QString copied(const ReportRecord& record) const override;
    void rowsPlaced() override;

    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // How high a card is depends on its text and the width. Of the many, only those that come into
    // sight are measured; the others are guessed, and guesses are mended where one looks.
    struct Height {
        int height = 0;
        bool measured = false;
        std::uint64_t revision = 0; // of the record, 0 for none
    };

    CardControl(CardOrder* order, QWidget* parent);
    bool isPlaced() const;
    void forgetHeights();
    bool measure(int row); // true when the guess was wrong
    void settle();

    CardOrder* m_cards;
    mutable CardPainter m_painter;
    std::vector<Height> m_heights; // by row
    int m_width = 0;               // that they are for
    bool m_settling = false;
};

} // namespace tessel
