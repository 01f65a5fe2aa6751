// Lists in which locations are chosen: each entry a name, with the SID as its data.
#pragma once

#include "engine/alerts/mod_Recipients.h"

class QListWidget;

namespace tessel {

class ReportRecords;

// Where the rows of a table of locations hold what a list shows.
struct RecipientColumns {
    int name;
    int SID;
    int tag;
};

enum class RecipientOrder { ByColor, ByName };

// `tag`: the colour tag in front of the name; 0 for no such mark.
void addRecipient(QListWidget& list, const Recipient& recipient, int tag = 0);
Recipient recipientAt(const QListWidget& list, int row);

// Fills the list with the locations of a table, without the one with `leaveOut` for a SID.
void fillRecipients(QListWidget& list, const ReportRecords& rows, const RecipientColumns& columns,
                    RecipientOrder order, const QString& leaveOut);

} // namespace tessel
