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
#include <QVBoxLayout>

#include <algorithm>

namespace tessel {

namespace {

// What room there is goes to the title first, then to who and when; the text gives way.
constexpr std::array kShares{1000000, 1, 100, 10000};

} // namespace

MessageBar::MessageBar(Accent accent, QWidget* parent)
    : AlertWidget(parent), m_accent(accent), m_icon(new QLabel(this)), m_button(new QPushButton(this)),
      m_first(nullptr), m_lines(nullptr) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(1); // a long text must not widen the window
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::kSpace, look::kTight, look::kTight, look::kTight);
    layout->setSpacing(look::kSpace);
    layout->addWidget(m_icon);
    m_lines = new QVBoxLayout;
    m_lines->setSpacing(0);
    m_first = new QHBoxLayout;
    m_first->setSpacing(look::kSpace);
    m_lines->addLayout(m_first);
    layout->addLayout(m_lines, 1);
    for (ElidedLabel*& part : m_parts) {
        const auto index = static_cast<std::size_t>(&part - m_parts.data());
        part = new ElidedLabel(this);
        part->setAttribute(Qt::WA_TransparentForMouseEvents); // the bar has the tip
        m_first->addWidget(part, kShares[index]);
    }
    QFont bold;
    bold.setBold(true);
    m_parts[kTitle]->setFont(bold);
    m_first->addStretch();
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
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setPixmap(m_content.icon.pixmap(QSize(side, side), devicePixelRatioF()));
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
    fit();
}

// Without the room for all the text gets a line of its own. Beside that the time goes first: it is in the
// tip, and what is wanted and by whom is not to be cut for it.
void MessageBar::fit() {
    m_parts[kText]->setLine(m_content.text);
    const QMargins margins = layout()->contentsMargins();
    const auto taken = [](const QWidget& part) {
        return part.isHidden() ? 0 : part.sizeHint().width() + look::kSpace;
    };
    const int around = margins.left() + margins.right() + taken(*m_icon) + taken(*m_button);
    const auto wanted = [this](std::initializer_list<Part> parts) {
        int width = 0;
        for (const Part part : parts) {
            const ElidedLabel& label = *m_parts[part];
            width += label.text().isEmpty() ? 0 : label.wholeWidth() + look::kSpace;
        }
        return width - look::kSpace; // between them
    };
    const int room = width() - around;
    const bool twoLines = !m_content.text.isEmpty() && wanted({kTitle, kText, kTime, kName}) > room;
    // Where not even that has the room, what is wanted stands alone.
    const bool alone = twoLines && wanted({kTitle, kName}) > room;
    ElidedLabel* const text = m_parts[kText];
    const QString name = m_parts[kName]->text();
    text->setLine(alone && !name.isEmpty() ? name + u' ' + m_content.text : m_content.text);
    m_parts[kName]->setVisible(!name.isEmpty() && !alone);
    if (twoLines != (m_lines->count() > 1)) {
        m_first->removeWidget(text);
        m_lines->removeWidget(text);
        if (twoLines) {
            m_lines->addWidget(text);
        } else {
            m_first->insertWidget(kText, text, kShares[kText]);
        }
        updateGeometry(); // what is inside does not tell of its height
    }
    text->setMaximumWidth(twoLines ? QWIDGETSIZE_MAX : text->wholeWidth());
    m_parts[kTime]->setVisible(!m_content.time.isEmpty() &&
                               (!twoLines || wanted({kTitle, kTime, kName}) <= room));
}

void MessageBar::resizeEvent(QResizeEvent* event) {
    AlertWidget::resizeEvent(event);
    fit();
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
    return m_accent == Accent::Alert ? blend(window, QColor(look::kAlarm), look::kAlarmTint)
                                     : blend(window, palette().color(QPalette::Highlight),
                                             isDark(window) ? look::kSelectedFocused : look::kSelected);
}

void MessageBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor strong =
        m_accent == Accent::Alert ? QColor(look::kAlarm) : palette().color(QPalette::Highlight);
    painter.fillRect(rect(), back());
    painter.fillRect(QRect(0, height() - 1, width(), 1), blend(back(), strong, look::kUnfocused));
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, look::kMark, height())),
                     strong);
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
