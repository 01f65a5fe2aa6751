#include "engine/network/mod_FitText.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Limits.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tessel {

namespace {

using namespace std::string_view_literals;

// As text and in capitals; the longer of two that begin alike stands first.
constexpr std::array kMarks{u"<\u20ACP>"sv, u".A\u20AC"sv, u".\u20AC."sv, u".\u20AC"sv, u"R\u20AC"sv};
constexpr std::u16string_view kList = u":|:"sv;
constexpr QChar kColon = u':';

bool beginsWith(QStringView text, std::u16string_view mark) {
    const auto size = static_cast<qsizetype>(mark.size());
    return text.size() >= size &&
           std::equal(mark.begin(), mark.end(), text.begin(), [](char16_t wanted, QChar there) {
               const char16_t code = there.unicode();
               return (code >= u'a' && code <= u'z' ? code - u'a' + u'A' : code) == wanted;
           });
}

// Size of the mark that `text` begins with, 0 when there is none.
qsizetype markSize(QStringView text) {
    const auto* const mark = std::find_if(kMarks.begin(), kMarks.end(),
                                          [text](std::u16string_view one) { return beginsWith(text, one); });
    return mark == kMarks.end() ? 0 : static_cast<qsizetype>(mark->size());
}

enum class Inside { Packet, List, Name };

// No mark holds a blank, so that none arises across one that is put in.
QString fit(QStringView text, Inside inside) {
    QString result;
    result.reserve(text.size());
    while (!text.isEmpty()) {
        qsizetype size = markSize(text);
        if (size == 0 && inside != Inside::Packet && beginsWith(text, kList)) {
            size = static_cast<qsizetype>(kList.size());
        }
        if (size == 0 && inside == Inside::Name && text.front() == kColon) {
            size = 1;
        }
        result += size == 0 ? text.front() : QChar(u' ');
        text = text.sliced(std::max<qsizetype>(size, 1));
    }
    return result;
}

} // namespace

QString FitText(QStringView text) {
    return fit(text, Inside::Packet);
}

QString FitOwn(const QString& text) {
    return FitText(QStringView(text).left(kMaxRowText));
}

QString FitName(QStringView name) {
    return fit(name, Inside::Name);
}

QString ListItem(QStringView name, QStringView SID) {
    return FitName(name) + kColon + fit(SID, Inside::List);
}

QString FavoriteValue(QStringView name, QStringView SID, QStringView tone) {
    return FitName(name) + ListMark + fit(SID, Inside::List) + ListMark + FitName(tone);
}

bool ListItemIs(QStringView item, QStringView SID) {
    const qsizetype first = item.indexOf(kColon);
    return first >= 0 && !SID.isEmpty() && (item.sliced(first + 1) == SID || ListItemSID(item) == SID);
}

QStringView ListItemName(QStringView item) {
    const qsizetype last = item.lastIndexOf(kColon);
    return last < 0 ? item : item.first(last);
}

QStringView ListItemSID(QStringView item) {
    const qsizetype last = item.lastIndexOf(kColon);
    return last < 0 ? QStringView() : item.sliced(last + 1);
}

} // namespace tessel
