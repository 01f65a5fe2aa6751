// Lists of recipients as text: the way in which messages, groups and the history name locations.
#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace tessel {

struct Recipient {
    QString name;
    QString SID;

    bool operator==(const Recipient&) const = default;
};

// The items of such a list, in their order; those without a name and a SID are left out.
QList<Recipient> SplitRecipients(QStringView list);

// Items joined by `ListMark`, no mark at the end. What a name must not hold becomes a blank.
QString JoinRecipients(const QList<Recipient>& recipients);

} // namespace tessel
