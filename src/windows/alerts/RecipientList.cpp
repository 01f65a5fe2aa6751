#include "windows/alerts/RecipientList.h"

#include "controls/list/ReportText.h"
#include "engine/core/mod_Definitions.h"
#include "records/cReportRecords.h"

#include <QCollator>
#include <QListWidget>
#include <QPainter>

#include <algorithm>
#include <array>
#include <vector>

namespace tessel {

namespace {

struct Row {
    int tag;
    QCollatorSortKey key;
    const ReportRecord* record;
};

QCollator collator() {
    QCollator made;
    // The C locale compares code by code and knows no numbers.
    if (made.locale().language() == QLocale::C) {
        made.setLocale(QLocale(QLocale::English));
    }
    made.setNumericMode(true);
    made.setCaseSensitivity(Qt::CaseInsensitive);
    return made;
}

// A small field in the colour of a tag, clear for a location without one.
QPixmap tagField(int tag, int side) {
    const int inset = side * 3 / 16;
    constexpr int kBorder = 0x60;
    QPixmap field(side, side);
    field.fill(Qt::transparent);
    if (tag >= 1 && tag <= static_cast<int>(kTagColors.size())) {
        QPainter painter(&field);
        painter.fillRect(field.rect().adjusted(inset - 1, inset - 1, 1 - inset, 1 - inset),
                         QColor(kBorder * 2, kBorder * 2, kBorder * 2));
        painter.fillRect(field.rect().adjusted(inset, inset, -inset, -inset),
                         QColor::fromRgb(kTagColors[static_cast<std::size_t>(tag - 1)]));
    }
    return field;
}

const QIcon& tagIcon(int tag) {
    static const auto icons = [] {
        std::array<QIcon, kTagColors.size() + 1> made;
        for (std::size_t i = 0; i < made.size(); ++i) {
            for (const int side : {16, 24, 32}) {
                // Chosen or not, a colour is what the location is known by.
                const QPixmap field = tagField(static_cast<int>(i), side);
                made[i].addPixmap(field);
                made[i].addPixmap(field, QIcon::Selected);
            }
        }
        return made;
    }();
    return icons[tag >= 1 && tag < static_cast<int>(icons.size()) ? static_cast<std::size_t>(tag) : 0];
}

} // namespace

void addRecipient(QListWidget& list, const Recipient& recipient, int tag) {
    auto* const entry = new QListWidgetItem(singleLine(recipient.name), &list);
    entry->setData(Qt::UserRole, recipient.SID);
    if (tag != 0) {
        entry->setIcon(tagIcon(tag));
    }
}

Recipient recipientAt(const QListWidget& list, int row) {
    const QListWidgetItem* const entry = list.item(row);
    return {entry->text(), entry->data(Qt::UserRole).toString()};
}

void fillRecipients(QListWidget& list, const ReportRecords& rows, const RecipientColumns& columns,
                    RecipientOrder order, const QString& leaveOut) {
    const QCollator names = collator();
    std::vector<Row> sorted;
    sorted.reserve(static_cast<std::size_t>(rows.count()));
    for (const ReportRecordPtr& row : rows.rows()) {
        if (row->item(columns.SID).text != leaveOut) {
            sorted.push_back({row->item(columns.tag).text.toInt(),
                              names.sortKey(row->item(columns.name).text), row.get()});
        }
    }
    std::stable_sort(sorted.begin(), sorted.end(), [order](const Row& a, const Row& b) {
        const bool byColor = order == RecipientOrder::ByColor && a.tag != b.tag;
        return byColor ? a.tag < b.tag : a.key < b.key;
    });
    list.clear();
    for (const Row& row : sorted) {
        addRecipient(list, {row.record->item(columns.name).text, row.record->item(columns.SID).text},
                     row.tag);
    }
}

} // namespace tessel
