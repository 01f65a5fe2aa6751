#include "engine/alerts/mod_Recipients.h"

#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_FitText.h"

#include <QStringList>

namespace tessel {

QList<Recipient> SplitRecipients(QStringView list) {
    QList<Recipient> recipients;
    for (const QStringView entry : list.split(ListMark)) {
        Recipient recipient{ListItemName(entry).toString(), ListItemSID(entry).trimmed().toString()};
        if (!recipient.name.isEmpty() || !recipient.SID.isEmpty()) {
            recipients += std::move(recipient);
        }
    }
    return recipients;
}

QString JoinRecipients(const QList<Recipient>& recipients) {
    QStringList items;
    items.reserve(recipients.size());
    for (const Recipient& recipient : recipients) {
        items += ListItem(recipient.name, recipient.SID);
    }
    return items.join(ListMark);
}

} // namespace tessel
