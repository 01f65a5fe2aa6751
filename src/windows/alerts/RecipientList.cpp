#include "windows/alerts/RecipientList.h"

#include "records/cReportRecords.h"

#include <QListWidget>

namespace tessel {

void addRecipient(QListWidget& list, const Recipient& recipient) {
    auto* const entry = new QListWidgetItem(recipient.name, &list);
    entry->setData(Qt::UserRole, recipient.SID);
}

Recipient recipientAt(const QListWidget& list, int row) {
    const QListWidgetItem* const entry = list.item(row);
    return {entry->text(), entry->data(Qt::UserRole).toString()};
}

void fillRecipients(QListWidget& list, const ReportRecords& rows, int name, int SID,
                    const QString& leaveOut) {
    list.clear();
    for (const ReportRecordPtr& row : rows.rows()) {
        if (row->item(SID).text != leaveOut) {
            addRecipient(list, {row->item(name).text, row->item(SID).text});
        }
    }
}

} // namespace tessel
