#include "controls/bars/MessageBar.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace tessel {

namespace {

constexpr int kPadding = 8;
constexpr int kGap = 8;
constexpr int kIconSize = 16;
constexpr int kButtonInset = 3; // above and below the button
constexpr QRgb kWarm = 0xFFF2A33A;

QFont bold(QFont font) {
    font.setBold(true);
    return font;
}

} // namespace

MessageBar::MessageBar(Accent accent, QWidget* parent)
    : AlertWidget(parent), m_accent(accent), m_button(new QPushButton(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_button->setAutoDefault(false); // Enter in a box beside it is not meant for the bar
    m_button->hide();
    connect(m_button, &QPushButton::clicked, this, &MessageBar::buttonClicked);
    hide();
}

void MessageBar::setButton(const QString& caption, const QString& tip) {
    m_button->setText(caption);
    m_button->setToolTip(tip);
    m_button->setVisible(!caption.isEmpty());
    placeButton();
}

void MessageBar::setContent(const BarContent& content) {
    m_content = content;
    const QString text = whole();
    setAccessibleName(singleLine(text, kTipChars));
    m_told = false;
    const bool any = !text.isEmpty() || !content.icon.isNull();
    setVisible(any);
    if (any && isVisible()) {
        tell();
    }
    update();
}

QString MessageBar::whole() const {
    QStringList parts;
    for (const QString& part : {m_content.title, m_content.text, m_content.time}) {
        if (!part.isEmpty()) {
            parts.append(part);
        }
    }
    if (!m_content.name.isEmpty()) {
        parts.append(u'(' + m_content.name + u')');
    }
    return parts.join(u' ');
}

QSize MessageBar::sizeHint() const {
    return {300, minimumSizeHint().height()};
}

// Narrow whatever is in it: a long text must not widen the window.
QSize MessageBar::minimumSizeHint() const {
    const QSize button = m_button->isHidden() ? QSize() : m_button->sizeHint();
    const int line = std::max({fontMetrics().height(), kIconSize, button.height() - 2});
    return {2 * kPadding + kIconSize + kGap + button.width(), line + 2 * kButtonInset};
}

QColor MessageBar::back() const {
    const QColor window = palette().color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    return m_accent == Accent::Alert
               ? blend(window, QColor(kWarm), dark ? 0.32 : 0.36)
               : blend(window, palette().color(QPalette::Highlight), dark ? 0.28 : 0.16);
}

void MessageBar::placeButton() {
    const QSize size(m_button->sizeHint().width(), height() - 2 * kButtonInset);
    const QRect room = rect().adjusted(kPadding, 0, -kButtonInset, 0);
    m_button->setGeometry(
        QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter, size, room));
    updateGeometry();
}

QRect MessageBar::textRoom() const {
    QRect room = rect().adjusted(kPadding, 0, -kPadding, 0);
    if (!m_button->isHidden()) {
        room.setRight(room.right() - m_button->width() - kGap);
    }
    if (!m_content.icon.isNull()) {
        room.setLeft(room.left() + kIconSize + kGap);
    }
    return room;
}

// What does not fit is taken from the text first, then from name, title and time.
void MessageBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor under = back();
    const QColor plain = palette().color(QPalette::WindowText);
    const QColor strong = m_accent == Accent::Alert ? QColor(kWarm) : palette().color(QPalette::Highlight);
    painter.fillRect(rect(), under);
    painter.fillRect(QRect(0, height() - 1, width(), 1), blend(under, strong, 0.6));
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, 3, height())), strong);
    if (!m_content.icon.isNull()) {
        const QRect icon(kPadding, (height() - kIconSize) / 2, kIconSize, kIconSize);
        m_content.icon.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), icon));
    }

    struct Part {
        QString text;
        QFont font;
        int width = 0;
    };
    const QString name = m_content.name.isEmpty() ? QString() : u'(' + m_content.name + u')';
    std::array<Part, 4> parts{Part{m_content.title, bold(font())}, Part{m_content.text, font()},
                              Part{m_content.time, font()}, Part{name, font()}};
    const QRect room = textRoom();
    int over = -kGap - room.width();
    for (Part& part : parts) {
        part.text = singleLine(part.text);
        part.width = QFontMetrics(part.font).horizontalAdvance(part.text) + 1; // it rounds
        over += part.text.isEmpty() ? 0 : part.width + kGap;
    }
    m_cut = over > 0 || m_content.text.size() > kShownChars;
    // What happened and who it was says more than when, which stands in the history too.
    if (Part& time = parts[2]; over > 0 && !time.text.isEmpty()) {
        over -= time.width + kGap;
        time.text.clear();
    }
    const int least = fontMetrics().horizontalAdvance(QStringLiteral("xxx")) + kGap;
    for (const std::size_t i : {3U, 1U, 0U}) {
        Part& part = parts[i];
        const int given = std::clamp(over, 0, std::max(0, part.width - least));
        part.width -= given;
        over -= given;
    }
    int x = room.left();
    painter.setPen(readableOn(plain, under, plain));
    for (const Part& part : parts) {
        const int width = std::min(part.width, room.right() + 1 - x);
        if (part.text.isEmpty() || width <= 0) {
            continue;
        }
        const QRect box = QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, width, height() - 1));
        painter.setFont(part.font);
        painter.drawText(box, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         QFontMetrics(part.font).elidedText(part.text, Qt::ElideRight, width));
        x += width + kGap;
    }
}

bool MessageBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QPoint pos = static_cast<QHelpEvent*>(event)->globalPos();
        QToolTip::showText(pos, m_cut ? plainTip(whole()) : QString(), this);
        return true;
    }
    return AlertWidget::event(event);
}

void MessageBar::resizeEvent(QResizeEvent* event) {
    AlertWidget::resizeEvent(event);
    placeButton();
}

void MessageBar::showEvent(QShowEvent* event) {
    AlertWidget::showEvent(event);
    tell();
}

void MessageBar::changeEvent(QEvent* event) {
    AlertWidget::changeEvent(event);
    placeButton();
    update();
}

void MessageBar::tell() {
    if (!m_told) {
        m_told = true;
        tellAlert();
    }
}

} // namespace tessel
