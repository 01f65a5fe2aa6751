#include "engine/presence/mod_LocationWords.h"

#include "engine/core/mod_Definitions.h"
#include "engine/presence/mod_LocationViews.h"

#include <QStringList>

namespace tessel {

namespace {

// In the order of `kTagColors`.
constexpr std::array kColorNames{"yellow", "green",       "white",    "cyan",    "gray",
                                 "tan",    "orange",      "red",      "pink",    "lavender",
                                 "olive",  "dark green",  "blue",     "black",   "dark gray",
                                 "brown",  "dark orange", "dark red", "magenta", "purple"};
static_assert(kColorNames.size() == kTagColors.size());

// In the order of the pictures.
constexpr std::array kStaffNames{"stethoscope", "tooth",     "syringe", "scissors", "pill",
                                 "heart",       "clipboard", "eye",     "bandage",  "star"};
static_assert(kStaffNames.size() == kStaffTagCount);

QStringList stateWords(const ReportRecord& row) {
    QStringList words;
    if (isOccupied(row)) {
        words += QStringLiteral("occupied");
    }
    if (isDoNotDisturb(row)) {
        words += QStringLiteral("do not disturb");
    }
    if (words.isEmpty()) {
        words += QStringLiteral("free");
    }
    return words;
}

} // namespace

QString ColorTagName(int tag) {
    return tag >= 1 && tag <= static_cast<int>(kColorNames.size())
               ? QLatin1String(kColorNames[static_cast<std::size_t>(tag - 1)])
               : QString();
}

QString StaffTagName(int tag) {
    return IsLocationTag(tag) ? QLatin1String(kStaffNames[static_cast<std::size_t>(tag - kFirstStaffTag)])
                              : QString();
}

int AgeLength(const ReportRecord& row) {
    if (item(row, LocationItem::Status).value == 0) {
        return 0;
    }
    const QString& text = item(row, LocationItem::Status).text;
    const QString& block = item(row, LocationItem::OST).text;
    const qsizetype end = block.indexOf(ValueMark);
    const QStringView status = QStringView(block).left(end < 0 ? block.size() : end).trimmed();
    return text.startsWith(status) ? static_cast<int>(text.size() - status.size()) : 0;
}

QString SearchWords(const ReportRecord& row) {
    QStringList words = stateWords(row);
    if (isDoNotDisturb(row)) {
        words += QStringLiteral("dnd");
    }
    words += StaffTagName(GetStatusTag(row));
    words += GetOccupiedName(row);
    const QString status = GetCurrentStatus(row).simplified();
    for (const QString& word : status.split(u' ', Qt::SkipEmptyParts)) {
        words += QLatin1String("status:") + word;
    }
    return words.join(u' ');
}

QString SpokenState(const ReportRecord& row) {
    QStringList words;
    if (row.pinned) {
        words += QStringLiteral("this location");
    }
    words += stateWords(row);
    if (const QString color = ColorTagName(item(row, LocationItem::ST).value); !color.isEmpty()) {
        words += QStringLiteral("colour tag ") + color;
    }
    return words.join(QLatin1String(", "));
}

QString SpokenStaffTag(const ReportRecord& row) {
    const QString name = StaffTagName(GetStatusTag(row));
    return name.isEmpty() ? QString() : QStringLiteral("staff tag ") + name;
}

} // namespace tessel
