#include "controls/bars/PaneBar.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportText.h"

#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace tessel {

namespace {

constexpr int kPad = 2;
constexpr int kTextPad = 8;
constexpr int kLeastLetters = 6; // of the text, before panes give way to it

} // namespace

// A label is told as text by screen readers, but does not cut what it shows.
class FooterText : public QLabel {
public:
    explicit FooterText(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

    void show(const QString& text, const QString& tip) {
        setText(singleLine(text));
        m_tip = tip.trimmed();
        setAccessibleDescription(singleLine(m_tip, kTipChars));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip) {
            return QLabel::event(event);
        }
        QStringList lines;
        if (fontMetrics().horizontalAdvance(text()) > width()) {
            lines.append(text().trimmed());
        }
        if (!m_tip.isEmpty()) {
            lines.append(m_tip);
        }
        const QPoint pos = static_cast<QHelpEvent*>(event)->globalPos();
        QToolTip::showText(pos, plainTip(lines.join(u'\n')), this);
        return true;
    }

private:
    QString m_tip;
};

PaneBar::PaneBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent)
    : CommandBar(commands, parent), m_footer(new FooterText(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Status bar"));
    for (const int id : ids) {
        if (CommandButton* const pane = addButton(id, 0, this); pane != nullptr) {
            pane->setForm(commands.hasIcon(id) ? CommandButton::Form::Icon : CommandButton::Form::Small);
            m_panes.push_back(pane);
        }
    }
    m_more = addMenuButton(tr("More commands"), CommandButton::Glyph::More, 0, this);
    m_more->setForm(CommandButton::Form::Icon);
}

void PaneBar::setFooter(const QString& text, const QString& tip) {
    m_footer->show(text, tip);
}

QString PaneBar::footer() const {
    return m_footer->text();
}

QSize PaneBar::sizeHint() const {
    return {400, minimumSizeHint().height()};
}

QSize PaneBar::minimumSizeHint() const {
    const QSize pane = m_more->sizeHint();
    return {pane.width() + kLeastLetters * fontMetrics().averageCharWidth() + 2 * kTextPad,
            pane.height() + 2 * kPad};
}

// The panes in front stay longest.
void PaneBar::layOut() {
    std::vector<CommandButton*> shown;
    std::ranges::copy_if(m_panes, std::back_inserter(shown), &CommandButton::isWanted);
    m_hidden.clear();
    int total = 0;
    for (const CommandButton* pane : shown) {
        total += pane->sizeHint().width();
    }
    const int text = kLeastLetters * fontMetrics().averageCharWidth() + 2 * kTextPad;
    const int more = m_more->sizeHint().width();
    while (!shown.empty() && total > width() - text - (m_hidden.empty() ? 0 : more)) {
        total -= shown.back()->sizeHint().width();
        m_hidden.insert(m_hidden.begin(), shown.back());
        shown.pop_back();
    }
    m_more->setVisible(!m_hidden.empty());
    if (!m_hidden.empty()) {
        shown.push_back(m_more);
        total += more;
    }
    int x = width() - total - kPad;
    const QRect textRoom(kTextPad, kPad, x - 2 * kTextPad, height() - 2 * kPad);
    m_footer->setGeometry(QStyle::visualRect(layoutDirection(), rect(), textRoom));
    for (CommandButton* const pane : m_panes) {
        pane->setVisible(std::ranges::find(shown, pane) != shown.end());
    }
    for (CommandButton* const pane : shown) {
        const int wide = pane->sizeHint().width();
        const QRect box(x, kPad, wide, height() - 2 * kPad);
        pane->setGeometry(QStyle::visualRect(layoutDirection(), rect(), box));
        x += wide;
    }
}

void PaneBar::fillMenu(CommandButton&, QMenu& menu) {
    for (const CommandButton* pane : m_hidden) {
        menu.addAction(pane->action());
    }
}

void PaneBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), palette().color(QPalette::Mid));
}

} // namespace tessel
