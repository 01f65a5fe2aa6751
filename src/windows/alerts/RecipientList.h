// Lists in which locations are chosen: each entry a name, with the SID as its data.
#pragma once

#include "engine/alerts/mod_Recipients.h"

class QListWidget;

namespace tessel {

class ReportRecords;

void addRecipient(QListWidget& list, const Recipient& recipient);
Recipient recipientAt(const QListWidget& list, int row);

// The rows of a table of locations in their order, without the one with `leaveOut` for a SID. `name`
// and `SID`: indexes of the rows' items.
void fillRecipients(QListWidget& list, const ReportRecords& rows, int name, int SID, const QString& leaveOut);

} // namespace tessel
