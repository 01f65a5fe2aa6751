#include "engine/alerts/mod_SentView.h"

#include "engine/core/mod_Definitions.h"

#include <QStringList>

namespace tessel {

SentView SentViewOf(const HistoryMessage& message) {
    SentView view;
    cStamp stamp;
    view.stamp =
        QLatin1String(" Sent @ ") + message.time + QLatin1String(" on ") + stamp.LongDate(message.date);
    view.text = message.body.split(ListMark).join(QStringLiteral("\r\n"));
    if (message.everyone) {
        view.to = QStringLiteral("Everyone");
        return view;
    }
    if (!message.SID.isEmpty()) {
        view.recipients = {{message.name, message.SID}};
    } else if (message.name.contains(u':')) {
        view.recipients = SplitRecipients(message.name);
    } else {
        // A message to a colour has the colour's number for a name.
        view.to = QLatin1String("Color ") + message.name;
        return view;
    }
    QStringList names;
    for (const Recipient& recipient : view.recipients) {
        names += recipient.name;
    }
    view.to = names.join(QLatin1String(", "));
    return view;
}

} // namespace tessel
