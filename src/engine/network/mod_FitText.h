// Texts made fit to travel. Packets and lists know no escaping: a text that holds one of their marks
// cuts or shifts what it travels in. Whatever the own location says of itself, and whatever is put
// into an alert, a message or a list, goes through here once before; what others send is read as it comes.
#pragma once

#include <QString>
#include <QStringView>

namespace tessel {

// `text` with a blank in place of each `FieldMark`, `PacketEnd`, `ValueMark` and `AuthorMark`, in either
// case of their letters, also of the ".€" that would make a `ValueMark` with the mark behind it. Blanks
// at the ends stay, no new mark arises where one stood, and the result is no longer than `text`. The
// `ListMark` stays: people can type it, and nothing that a location says of itself is split at it.
QString FitText(QStringView text);

// The same for what files and the system say of this location: it may be written by hand or from afar,
// and travels in every packet, which must stay short enough to send.
QString FitOwn(const QString& text);

// The same for a name inside a list: ':' and `ListMark` become a blank, too.
QString FitName(QStringView name);

// One item of a list of recipients and one member of a group: the name, ":" and the SID. The caller puts
// the `ListMark` between items.
QString ListItem(QStringView name, QStringView SID);
// What is stored of a favorite: name, SID and tone, joined by `ListMark`.
QString FavoriteValue(QStringView name, QStringView SID, QStringView tone);

// Whether an item names this SID. Older stations leave a ':' in the name, so that the SID stands behind
// the first or behind the last one. Never for an empty SID.
bool ListItemIs(QStringView item, QStringView SID);
// Name and SID of an item: what stands before and behind its last ':'. Without one all of it is name.
QStringView ListItemName(QStringView item);
QStringView ListItemSID(QStringView item);

} // namespace tessel
