#include "controls/bars/MessageBar.h"

#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"
#include "controls/look/ElidedLabel.h"
#include "controls/look/Tokens.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace tessel {

namespace {

constexpr int kPadding = 8;
constexpr int kIconSize = 16;
constexpr int kButtonInset = 3; // around the button
constexpr QRgb kWarm = 0xFFF2A33A;
// What room there is goes to the title first, then to who and when; the text gives way.
constexpr std::array kShares{1000000, 1, 100, 10000};

} // namespace

MessageBar::MessageBar(Accent accent, QWidget* parent)
    : AlertWidget(parent), m_accent(accent), m_icon(new QLabel(this)), m_button(new QPushButton(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(1); // a long text must not widen the window
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kPadding, kButtonInset, kButtonInset, kButtonInset);
    layout->setSpacing(kPadding);
    layout->addWidget(m_icon);
    for (ElidedLabel*& part : m_parts) {
        const auto index = static_cast<std::size_t>(&part - m_parts.data());
        part = new ElidedLabel(this);
        part->setAttribute(Qt::WA_TransparentForMouseEvents); // the bar has the tip
        layout->addWidget(part, kShares[index]);
    }
    QFont bold;
    bold.setBold(true);
    m_parts[kTitle]->setFont(bold);
    layout->addStretch();
    layout->addWidget(m_button);
    m_button->setAutoDefault(false); // Enter in a box beside it is not meant for the bar
    m_button->hide();
    connect(m_button, &QPushButton::clicked, this, &MessageBar::buttonClicked);
    hide();
}

void MessageBar::setButton(const QString& caption, const QString& tip) {
    m_button->setText(caption);
    m_button->setToolTip(tip);
    m_button->setVisible(!caption.isEmpty());
}

void MessageBar::setContent(const BarContent& content) {
    m_content = content;
    const QString text = whole();
    setAccessibleName(singleLine(text, kTipChars));
    m_told = false;
    showContent();
    const bool any = !text.isEmpty() || !content.icon.isNull();
    setVisible(any);
    if (any && isVisible()) {
        tell();
    }
}

void MessageBar::showContent() {
    m_icon->setPixmap(m_content.icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    m_icon->setVisible(!m_content.icon.isNull());
    const QString name = m_content.name.isEmpty() ? QString() : u'(' + m_content.name + u')';
    const std::array<QString, kParts> texts{m_content.title, m_content.text, m_content.time, name};
    QPalette inks;
    const QColor plain = palette().color(QPalette::WindowText);
    inks.setColor(QPalette::WindowText, readableOn(plain, back(), plain));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        m_parts[i]->setLine(texts[i]);
        m_parts[i]->setMaximumWidth(m_parts[i]->wholeWidth());
        m_parts[i]->setVisible(!texts[i].isEmpty());
        m_parts[i]->setPalette(inks);
    }
    fitTime();
}

// In little room the time goes first: it is in the tip, and who rang is not to be cut for it.
void MessageBar::fitTime() {
    int whole = m_button->isVisibleTo(this) ? m_button->sizeHint().width() + kPadding : 0;
    for (const ElidedLabel* const part : m_parts) {
        whole += part->text().isEmpty() ? 0 : part->wholeWidth() + kPadding;
    }
    const bool fits = width() >= look::kNarrow || whole + kIconSize + 2 * kPadding <= width();
    m_parts[kTime]->setVisible(!m_content.time.isEmpty() && fits);
}

void MessageBar::resizeEvent(QResizeEvent* event) {
    AlertWidget::resizeEvent(event);
    fitTime();
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

QColor MessageBar::back() const {
    const QColor window = palette().color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    return m_accent == Accent::Alert
               ? blend(window, QColor(kWarm), dark ? 0.32 : 0.36)
               : blend(window, palette().color(QPalette::Highlight), dark ? 0.28 : 0.16);
}

void MessageBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor strong = m_accent == Accent::Alert ? QColor(kWarm) : palette().color(QPalette::Highlight);
    painter.fillRect(rect(), back());
    painter.fillRect(QRect(0, height() - 1, width(), 1), blend(back(), strong, 0.6));
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, 3, height())), strong);
}

bool MessageBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const bool cut = m_content.text.size() > kShownChars ||
                         (!m_content.time.isEmpty() && m_parts[kTime]->isHidden()) ||
                         std::ranges::any_of(m_parts, [](const ElidedLabel* part) { return part->isCut(); });
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? plainTip(whole()) : QString(),
                           this);
        return true;
    }
    return AlertWidget::event(event);
}

void MessageBar::showEvent(QShowEvent* event) {
    AlertWidget::showEvent(event);
    tell();
}

void MessageBar::changeEvent(QEvent* event) {
    AlertWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        showContent();
    }
}

void MessageBar::tell() {
    if (!m_told) {
        m_told = true;
        tellAlert();
    }
}

} // namespace tessel
