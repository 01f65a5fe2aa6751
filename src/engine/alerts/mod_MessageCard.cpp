#include "engine/alerts/mod_MessageCard.h"

#include "engine/core/mod_Definitions.h"

namespace tessel {

MessageHeading ReceivedHeading(const QString& type, bool everyone) {
    if (type == u"1") {
        return {QStringLiteral("Reply from "), kBlue, kReplyIcon};
    }
    if (type != u"0") {
        return {};
    }
    return everyone ? MessageHeading{QStringLiteral("Everyone from "), kDarkGreen}
                    : MessageHeading{QStringLiteral("From "), kPurple};
}

QString MessagePreview(const QString& body) {
    constexpr int kLongestPreview = 150;
    const QString first = body.section(ListMark, 0, 0);
    return first.size() > kLongestPreview ? first.left(kLongestPreview) + QLatin1String("...") : first;
}

} // namespace tessel
