#include "controls/list/CardControl.h"

#include "controls/list/ReportText.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

// Cards that turn out lower than guessed let others come into sight, which are measured then; each
// is measured once, so a few rounds are enough for any screen.
constexpr int kRounds = 50;
constexpr int kSearchedChars = 70000; // of each card: more than a packet carries

} // namespace

// One column, whose cell is the whole card.
class CardOrder : public ReportOrder {
public:
    void setItems(const CardItems& items) {
        m_items = items;
        ReportColumn column;
        column.item = items.heading;
        setColumns({column});
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const bool told = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
        return told && checkIndex(index, CheckIndexOption::IndexIsValid)
                   ? singleLine(cardText(*record(index.row()), m_items), kTipChars)
                   : QVariant();
    }

protected:
    QString searchedText(const ReportRecord& record) const override {
        return u'\n' + wholeCardText(record, m_items).left(kSearchedChars);
    }

private:
    CardItems m_items;
};

CardControl::CardControl(QWidget* parent) : CardControl(new CardOrder, parent) {}

CardControl::CardControl(CardOrder* order, QWidget* parent)
    : ReportView(order, parent), m_cards(order), m_painter(kit()) {
    m_cards->setItems({});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::AlternateBase);
    setFontSize(fontSize());
}

void CardControl::setCardItems(const CardItems& items) {
    m_painter.setItems(items);
    m_cards->setItems(items);
    forgetHeights();
    layoutRows();
    syncOrNote();
}

// --- heights -----------------------------------------------------------------------------------

void CardControl::forgetHeights() {
    m_width = viewport()->width();
    m_heights.assign(static_cast<std::size_t>(shownCount()), {});
}

std::vector<int> CardControl::rowHeights(const std::vector<int>& movedTo) {
    const auto count = static_cast<std::size_t>(shownCount());
    if (!movedTo.empty() || m_heights.size() != count) {
        std::vector<Height> moved(count);
        for (std::size_t old = 0; old < std::min(movedTo.size(), m_heights.size()); ++old) {
            if (movedTo[old] >= 0) {
                moved[static_cast<std::size_t>(movedTo[old])] = m_heights[old];
            }
        }
        m_heights = std::move(moved);
    }
    std::vector<int> heights;
    heights.reserve(count);
    for (std::size_t row = 0; row < count; ++row) {
        const ReportRecord& record = *order().record(static_cast<int>(row));
        Height& known = m_heights[row];
        if (known.height == 0) {
            known.height = m_painter.likelyHeight(record, m_width);
        }
        known.measured = known.measured && known.revision == record.revision();
        known.revision = record.revision();
        heights.push_back(known.height);
    }
    return heights;
}

bool CardControl::heightsChanged(const ReportOrder::Synced& synced) const {
    Q_UNUSED(synced)
    int row = 0;
    return std::any_of(m_heights.begin(), m_heights.end(), [this, &row](const Height& known) {
        return known.revision != order().record(row++)->revision();
    });
}

bool CardControl::measure(int row) {
    Height& known = m_heights[static_cast<std::size_t>(row)];
    if (known.measured) {
        return false;
    }
    known.measured = true;
    return std::exchange(known.height, m_painter.height(*order().record(row), m_width)) != known.height;
}

// False while the rows are others already than those that have a place.
bool CardControl::isPlaced() const {
    return places().count() == shownCount() && m_heights.size() == static_cast<std::size_t>(shownCount());
}

// Measures what is in sight. Rows in sight stay where they are while those above them find their
// height.
void CardControl::settle() {
    if (m_settling || !isPlaced()) {
        return;
    }
    const QScopedValueRollback settling(m_settling, true);
    QScrollBar& bar = *verticalScrollBar();
    for (int round = 0; round < kRounds; ++round) {
        const bool atEnd = bar.value() > 0 && bar.value() == bar.maximum();
        bool wrong = false;
        const int end = verticalOffset() + viewport()->height();
        for (int row = std::max(0, rowAt(0)); row < places().count() && places().top(row) < end; ++row) {
            wrong |= measure(row);
        }
        if (!wrong) {
            break;
        }
        layoutRows();
        if (atEnd) {
            bar.setValue(bar.maximum());
        }
    }
}

// A screenful on both sides of the target is measured first, so that it stays where it is put.
void CardControl::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (index.isValid() && !m_settling && isPlaced()) {
        const QScopedValueRollback settling(m_settling, true);
        bool wrong = false;
        for (const int step : {-1, 1}) {
            int room = viewport()->height();
            for (int row = index.row(); row >= 0 && row < places().count() && room > 0; row += step) {
                wrong |= measure(row);
                room -= m_heights[static_cast<std::size_t>(row)].height;
            }
        }
        if (wrong) {
            layoutRows();
        }
    }
    ReportView::scrollTo(index, hint);
}

// A scroll bar that came only when it is needed would change what is needed.
void CardControl::rowsPlaced() {
    setVerticalScrollBarPolicy(shownCount() == 0 ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    settle();
}

void CardControl::scrollContentsBy(int dx, int dy) {
    ReportView::scrollContentsBy(dx, dy);
    settle();
}

void CardControl::resizeEvent(QResizeEvent* event) {
    ReportView::resizeEvent(event);
    if (viewport()->width() != m_width) {
        forgetHeights();
        layoutRows();
    } else {
        updateGeometries();
        settle();
    }
}

void CardControl::applyFont() {
    kit().setFont(font());
    kit().setPalette(palette());
    m_painter.setRightToLeft(isRightToLeft());
    forgetHeights();
    layoutRows();
}

// --- rows --------------------------------------------------------------------------------------

void CardControl::paintRow(QPainter& painter, int row) {
    m_painter.paint(painter, *order().record(row), rowRect(row), rowState(row));
}

QString CardControl::hiddenText(const QModelIndex& index, const QPoint& pos) const {
    return m_painter.hiddenText(*order().record(index.row()), rowRect(index.row()), pos);
}

QString CardControl::copied(const ReportRecord& record) const {
    return wholeCardText(record, m_painter.items());
}

} // namespace tessel
