// A message that this location sent, as it is shown again.
#pragma once

#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/alerts/mod_Recipients.h"

namespace tessel {

struct SentView {
    QString to; // names, or "Everyone"
    QList<Recipient> recipients;
    QString text;
    QString stamp;
};

SentView SentViewOf(const HistoryMessage& message);

} // namespace tessel
