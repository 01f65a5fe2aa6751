#include "records/mod_PlainText.h"

#include <algorithm>

namespace tessel {

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

QString withoutControls(QString text) {
    if (std::any_of(text.cbegin(), text.cend(), isControl)) {
        std::replace_if(text.begin(), text.end(), isControl, QChar(u' '));
    }
    return text;
}

} // namespace tessel
