#include "windows/ListFont.h"

#include "controls/list/ReportView.h"

namespace tessel {

void setListFont(ReportView& list, const QString& family, int points, bool bold) {
    const QString defaultFont = QStringLiteral("Tahoma");
    QFont font = list.font();
    if (family.compare(defaultFont, Qt::CaseInsensitive) != 0) {
        font.setFamily(family);
    }
    font.setBold(bold);
    list.setFont(font);
    list.setFontSize(points);
}

} // namespace tessel
