#include "controls/edit/ColorTagPicker.h"

#include "controls/look/Tokens.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>

namespace tessel {

namespace {

constexpr int kColumns = 10;
constexpr int kSwatch = 28;
constexpr int kSpacing = 4;
constexpr double kRounding = 5;
constexpr int kNoneId = -2; // of the button for no colour; -1 is the group's own word for none

// A round-cornered block of colour that is pressed when chosen.
class Swatch : public QAbstractButton {
public:
    Swatch(const QColor& color, QWidget* parent) : QAbstractButton(parent), m_color(color) {
        setCheckable(true);
        setFixedSize(kSwatch, kSwatch);
        setFocusPolicy(Qt::StrongFocus);
        const QString name =
            tr("Red %1, green %2, blue %3").arg(color.red()).arg(color.green()).arg(color.blue());
        setAccessibleName(name);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF outer = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), look::kFocus)
                                  : QPen(palette().color(QPalette::WindowText)));
        painter.setBrush(Qt::NoBrush);
        if (hasFocus() || isChecked()) {
            painter.drawRoundedRect(outer, kRounding, kRounding);
        }
        painter.setPen(QPen(palette().color(QPalette::Mid), 1));
        painter.setBrush(m_color);
        painter.drawRoundedRect(outer.adjusted(2.5, 2.5, -2.5, -2.5), kRounding - 2, kRounding - 2);
        if (isChecked()) {
            // The mark says what the frame says, for those who tell colours badly.
            constexpr int kBright = 150;
            const QPointF c = outer.center();
            painter.setPen(QPen(m_color.lightness() > kBright ? Qt::black : Qt::white, 2, Qt::SolidLine,
                                Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(
                QPolygonF{c + QPointF(-4.5, 0.5), c + QPointF(-1.5, 3.5), c + QPointF(4.5, -3.5)});
        }
    }

private:
    QColor m_color;
};

} // namespace

ColorTagPicker::ColorTagPicker(const std::vector<QColor>& colors, const QString& noneText, QWidget* parent)
    : QWidget(parent), m_buttons(new QButtonGroup(this)) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kSpacing);
    auto* const none = new QRadioButton(noneText, this);
    m_buttons->addButton(none, kNoneId);
    for (int index = 0; index < static_cast<int>(colors.size()); ++index) {
        auto* const swatch = new Swatch(colors[static_cast<std::size_t>(index)], this);
        swatch->setToolTip(tr("Color %1").arg(index + 1));
        m_buttons->addButton(swatch, index);
        grid->addWidget(swatch, index / kColumns, index % kColumns);
    }
    grid->addWidget(none, grid->rowCount(), 0, 1, kColumns);
    grid->setColumnStretch(kColumns, 1);
    // Tab finds the one that is chosen.
    for (QAbstractButton* const button : m_buttons->buttons()) {
        button->setFocusPolicy(Qt::ClickFocus);
    }
    connect(m_buttons, &QButtonGroup::idToggled, this, [this](int id, bool on) {
        m_buttons->button(id)->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
        if (on) {
            emit chosenChanged();
        }
    });
    none->setChecked(true);
    for (QAbstractButton* const button : m_buttons->buttons()) {
        button->installEventFilter(this);
    }
}

int ColorTagPicker::chosen() const {
    return std::max(-1, m_buttons->checkedId());
}

void ColorTagPicker::setChosen(int index) {
    QAbstractButton* const button = m_buttons->button(index);
    (button != nullptr ? button : m_buttons->button(kNoneId))->setChecked(true);
}

bool ColorTagPicker::eventFilter(QObject* button, QEvent* event) {
    // Left to themselves, buttons of one group step to whichever is nearest, and the choice of no
    // colour is nearest to none of them.
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(button, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int step = key == Qt::Key_Right  ? 1
                     : key == Qt::Key_Left ? -1
                     : key == Qt::Key_Down ? kColumns
                     : key == Qt::Key_Up   ? -kColumns
                                           : 0;
    if (step == 0) {
        return QWidget::eventFilter(button, event);
    }
    // No colour stands below the grid, as one row more.
    const int colors = static_cast<int>(m_buttons->buttons().size()) - 1;
    const int from = m_buttons->id(static_cast<QAbstractButton*>(button));
    const int at =
        from < 0 ? (step == -kColumns ? (colors - 1) / kColumns * kColumns + kColumns : colors) : from;
    if (const int to = at + step; to >= 0) {
        QAbstractButton* const next = m_buttons->button(to < colors ? to : kNoneId);
        next->setChecked(true);
        next->setFocus();
    }
    return true;
}

} // namespace tessel
