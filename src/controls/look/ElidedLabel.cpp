#include "controls/look/ElidedLabel.h"

#include "controls/list/ReportText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tessel {

namespace {
constexpr int kLeastLetters = 4;
} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidedLabel::setLine(const QString& text, const QString& tip) {
    setText(singleLine(text));
    m_tip = tip.trimmed();
    setAccessibleDescription(singleLine(m_tip, kTipChars));
}

int ElidedLabel::wholeWidth() const {
    return text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text()) + 1; // it rounds
}

QSize ElidedLabel::minimumSizeHint() const {
    return {std::min(wholeWidth(), kLeastLetters * fontMetrics().averageCharWidth()), fontMetrics().height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QLabel::event(event);
    }
    QStringList lines;
    if (isCut()) {
        lines.append(text().trimmed());
    }
    if (!m_tip.isEmpty()) {
        lines.append(m_tip);
    }
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(lines.join(u'\n')), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

} // namespace tessel
