#include "controls/list/EmptyState.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/Tokens.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace tessel {

void paintEmptyState(QPainter& painter, const EmptyState& state, const QRect& room, PaintKit& kit) {
    using Face = PaintKit::Face;
    constexpr int kFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    const int margin = std::min(look::kEmptyMargin, room.width() / look::kEmptyMarginShare);
    const QRect inner = room.adjusted(margin, margin, -margin, -margin);
    // Texts of any origin may stand in no more than the room.
    const QString sentence = state.text.left(kTipChars);
    const QString hint = state.hint.left(kTipChars);
    const auto heightOf = [&](const QString& words, Face face) {
        return words.isEmpty() ? 0 : QFontMetrics(kit.font(face)).boundingRect(inner, kFlags, words).height();
    };
    const int side = state.picture >= 0 ? kit.px(look::kEmptyPicture) : 0;
    const int picture = side > 0 ? side + look::kWide : 0;
    const int words = heightOf(sentence, Face::Plain);
    const int below = hint.isEmpty() ? 0 : heightOf(hint, Face::Small) + look::kSpace;
    const bool pictured = side > 0 && picture + words + below <= inner.height();
    int top = inner.top() + std::max(0, (inner.height() - (pictured ? picture : 0) - words - below) / 2);
    if (pictured) {
        painter.setOpacity(look::kEmptyOpacity);
        kit.paintIcon(painter, state.picture, QRect(room.center().x() - side / 2, top, side, side));
        painter.setOpacity(1);
        top += picture;
    }
    const QColor base = kit.palette().color(QPalette::Base);
    const QColor text = kit.palette().color(QPalette::Text);
    const auto write = [&](const QString& what, Face face, double share) {
        painter.setPen(readableOn(blend(base, text, share), base, text));
        painter.setFont(kit.font(face));
        painter.drawText(QRect(inner.left(), top, inner.width(), room.bottom() - top), kFlags, what);
    };
    write(sentence, Face::Plain, 1);
    if (below > 0) {
        top += words + look::kSpace;
        write(hint, Face::Small, look::kQuiet);
    }
}

} // namespace tessel
