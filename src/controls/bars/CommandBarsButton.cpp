#include "controls/bars/CommandBarsButton.h"

#include "controls/bars/CommandBars.h"
#include "controls/list/ReportColors.h"
#include "controls/list/ReportText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace tessel {

namespace {

constexpr int kLargeIcon = 32;
constexpr int kPadX = 6;
constexpr int kPadY = 3;
constexpr int kTabPadX = 10;
constexpr int kTabPadY = 5;
constexpr int kGap = 5; // between icon and caption
constexpr int kArrow = 7;
constexpr int kArrowRoom = kArrow + 4;
constexpr int kMark = 2; // the bar that marks a checked command or the current tab
// In average characters; longer captions are cut, and told in the tip.
constexpr int kLargeChars = 14;
constexpr int kSmallChars = 26;
constexpr int kTabChars = 20;
constexpr int kLetters = 4;

// The style's own button would tell a tab as a button, and toggle a check behind its owner's back.
class ButtonAccess : public QAccessibleWidget {
public:
    explicit ButtonAccess(CommandButton* button) : QAccessibleWidget(button) {}

    // A button becomes a tab after it was made.
    QAccessible::Role role() const override {
        return button()->opensMenu()                          ? QAccessible::ButtonMenu
               : button()->form() == CommandButton::Form::Tab ? QAccessible::PageTab
                                                              : QAccessible::Button;
    }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Accelerator) {
            return QKeySequence::mnemonic(button()->action()->text()).toString(QKeySequence::NativeText);
        }
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = button()->isEnabled();
        state.checkable = button()->isCheckable();
        state.checked = button()->isChecked();
        state.pressed = button()->isDown();
        state.hasPopup = button()->opensMenu();
        state.selectable = role() == QAccessible::PageTab;
        state.selected = button()->isCurrent();
        return state;
    }
    QStringList actionNames() const override {
        return button()->isEnabled() ? QStringList{pressAction(), setFocusAction()} : QStringList();
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            button()->click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    CommandButton* button() const { return static_cast<CommandButton*>(object()); }
};

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    return className == QLatin1String(CommandButton::staticMetaObject.className())
               ? new ButtonAccess(static_cast<CommandButton*>(object))
               : nullptr;
}

int textWidth(const QFontMetrics& metrics, const QString& text) {
    return metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, text).width();
}

QFontMetrics boldMetrics(QFont font) {
    font.setBold(true);
    return QFontMetrics(font);
}

} // namespace

CommandButton::CommandButton(const CommandSet& commands, int id, QWidget* parent)
    : CommandButton(commands.find(id), Glyph::None, commands.opensMenu(id), parent) {
    m_id = id;
    m_hasIcon = commands.hasIcon(id);
}

CommandButton::CommandButton(QAction* action, Glyph glyph, bool opensMenu, QWidget* parent)
    : QAbstractButton(parent), m_action(action), m_opensMenu(opensMenu), m_glyph(glyph) {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
    setFocusPolicy(Qt::NoFocus); // the bar is the stop, see CommandBar
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] {
        emit chosen();
        m_action->trigger();
    });
    connect(m_action, &QAction::changed, this, &CommandButton::follow);
    follow();
}

bool CommandButton::isWanted() const {
    return m_action->isVisible();
}

void CommandButton::follow() {
    setCheckable(m_action->isCheckable());
    setChecked(m_action->isChecked());
    setEnabled(m_action->isEnabled());
    const QString spoken = spokenCaption(m_action->text());
    if (accessibleName() != spoken) {
        setAccessibleName(spoken);
    }
    const QString tipText = m_action->toolTip().trimmed();
    setAccessibleDescription(tipText == spoken ? QString() : singleLine(tipText, kTipChars));

    // An action tells of every change alike, most of which are checks.
    if (m_wanted != m_action->isVisible() || m_caption != m_action->text()) {
        m_wanted = m_action->isVisible();
        m_caption = m_action->text();
        m_sizes.fill({});
        emit reshaped();
    }
    update();
}

void CommandButton::setForm(Form form) {
    if (m_form != form) {
        m_form = form;
        update();
    }
}

void CommandButton::setGlyph(Glyph glyph) {
    m_glyph = glyph;
    update();
}

void CommandButton::setCurrent(bool current) {
    if (m_current == current) {
        return;
    }
    m_current = current;
    update();
    if (QAccessible::isActive()) {
        QAccessible::State state;
        state.selected = true;
        QAccessibleStateChangeEvent change(this, state);
        QAccessible::updateAccessibility(&change);
    }
}

int CommandButton::smallIconSide(const QFontMetrics& metrics) {
    return metrics.height() >= 24 ? 24 : 16;
}

QSize CommandButton::sizeOf(Form form) const {
    QSize& size = m_sizes[static_cast<std::size_t>(form)];
    if (size.isEmpty()) {
        size = measure(form);
    }
    return size;
}

QSize CommandButton::measure(Form form) const {
    const QFontMetrics metrics = fontMetrics();
    const int letter = metrics.averageCharWidth();
    const int icon = smallIconSide(metrics);
    const int arrow = m_opensMenu && m_glyph == Glyph::None ? kArrowRoom : 0;
    const int row = std::max(metrics.height(), icon) + 2 * kPadY;
    const QString caption = m_action->text();
    switch (form) {
    case Form::Large: {
        int width = kLargeIcon;
        const QStringList lines = captionLines();
        for (const QString& line : lines) {
            const int cut = std::min(textWidth(metrics, line), kLargeChars * letter);
            width = std::max(width, cut + (&line == &lines.back() ? arrow : 0));
        }
        return {width + 2 * kPadX, 2 * kPadY + kLargeIcon + kPadY + 2 * metrics.height()};
    }
    case Form::Icon:
        if (m_glyph != Glyph::None || m_hasIcon) {
            return {icon + 2 * kPadX + (m_hasIcon ? arrow : 0), row};
        }
        return {std::min(textWidth(metrics, caption), kLetters * letter) + 2 * kPadX + arrow, row};
    case Form::Tab:
        // The current one is bold, and must not move the others when it becomes so.
        return {std::min(textWidth(boldMetrics(font()), caption.trimmed()), kTabChars * letter) +
                    2 * kTabPadX + arrow,
                metrics.height() + 2 * kTabPadY};
    case Form::Small:
        break;
    }
    const int text = std::min(textWidth(metrics, caption), kSmallChars * letter);
    const int beside = m_hasIcon ? icon + (text > 0 ? kGap : 0) : 0;
    return {2 * kPadX + beside + text + arrow, row};
}

// Broken where the wider of the two lines is narrowest.
QStringList CommandButton::captionLines() const {
    const QString caption = m_action->text().trimmed();
    const QFontMetrics metrics = fontMetrics();
    QStringList best{caption};
    int width = textWidth(metrics, caption);
    for (qsizetype blank = caption.indexOf(u' '); blank > 0; blank = caption.indexOf(u' ', blank + 1)) {
        const QStringList lines{caption.left(blank), caption.mid(blank + 1)};
        const int wider = std::max(textWidth(metrics, lines[0]), textWidth(metrics, lines[1]));
        if (wider < width) {
            width = wider;
            best = lines;
        }
    }
    return best;
}

bool CommandButton::isCut() const {
    return m_form == Form::Icon || width() < sizeOf(m_form).width() ||
           textWidth(fontMetrics(), m_action->text()) > kSmallChars * fontMetrics().averageCharWidth();
}

QString CommandButton::tip() const {
    const QString name = accessibleName();
    const QString keys = m_action->shortcut().toString(QKeySequence::NativeText);
    QStringList lines;
    if (isCut() || !keys.isEmpty()) {
        lines.append(keys.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, keys));
    }
    const QString more = accessibleDescription();
    if (!more.isEmpty()) {
        lines.append(more);
    }
    return lines.join(u'\n');
}

bool CommandButton::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTip(tip()), this);
        return true;
    }
    return QAbstractButton::event(event);
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void CommandButton::mousePressEvent(QMouseEvent* event) {
    m_wasCurrent = m_current;
    QAbstractButton::mousePressEvent(event);
}

// The first click of the two has made any tab the current one.
void CommandButton::mouseDoubleClickEvent(QMouseEvent* event) {
    if (m_form == Form::Tab && m_wasCurrent && event->button() == Qt::LeftButton) {
        emit doubleClicked();
    } else {
        mousePressEvent(event);
    }
}

void CommandButton::changeEvent(QEvent* event) {
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_sizes.fill({});
        emit reshaped();
    }
}

// --- painting ------------------------------------------------------------------------------------

void CommandButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_form == Form::Tab) {
        paintTab(painter);
        return;
    }
    paintBack(painter);
    painter.setPen(palette().color(QPalette::ButtonText));
    QRect room = rect().adjusted(kPadX, kPadY, -kPadX, -kPadY);
    if (isDown()) {
        room.translate(0, 1);
    }
    if (m_form == Form::Large) {
        paintLarge(painter, room);
    } else {
        paintRow(painter, room);
    }
}

// Each state has a shape of its own beside its colour: hovered a frame, pressed a thick one, checked
// a bar at the foot, focused a frame in the accent colour with a gap.
void CommandButton::paintBack(QPainter& painter) const {
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor under = palette().color(QPalette::Button);
    const bool hover = underMouse() && isEnabled();
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (hover || isDown() || isChecked()) {
        const double share = isDown() ? 0.34 : isChecked() ? 0.2 : 0.1;
        const QColor frame =
            isEnabled() ? blend(under, accent, isDown() ? 1.0 : 0.6) : palette().color(QPalette::Mid);
        painter.setPen(QPen(frame, isDown() ? 2 : 1));
        painter.setBrush(blend(under, accent, share));
        painter.drawRoundedRect(box, 3, 3);
    }
    if (isChecked()) {
        const QColor mark = palette().color(isEnabled() ? QPalette::Highlight : QPalette::PlaceholderText);
        painter.fillRect(QRect(3, height() - 1 - kMark, width() - 6, kMark), mark);
    }
    if (hasFocus()) {
        painter.setPen(QPen(accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
}

void CommandButton::paintTab(QPainter& painter) const {
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor window = palette().color(QPalette::Window);
    const QRect box = rect();
    if (isDown() || (underMouse() && !m_current)) {
        painter.fillRect(box.adjusted(1, 1, -1, 0), blend(window, accent, isDown() ? 0.28 : 0.12));
    }
    if (m_current) {
        // Open at the foot, where its page begins.
        const QColor border = palette().color(QPalette::Mid);
        painter.fillRect(box, palette().color(QPalette::Button));
        painter.fillRect(QRect(0, 0, 1, height()), border);
        painter.fillRect(QRect(width() - 1, 0, 1, height()), border);
        painter.fillRect(QRect(0, 0, width(), kMark + 1), accent);
    }
    if (hasFocus()) {
        painter.setPen(QPen(accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(box).adjusted(3, 5, -3, -3), 2, 2);
    }
    QFont face = font();
    face.setBold(m_current);
    painter.setFont(face);
    painter.setPen(palette().color(QPalette::ButtonText));
    QRect room = box.adjusted(kTabPadX - 2, 1, -kTabPadX + 2, 0);
    if (m_opensMenu) {
        const int foot = layoutDirection() == Qt::LeftToRight ? room.right() - kArrow + 1 : room.left();
        paintGlyph(painter, QRect(foot, room.top(), kArrow, room.height()), Glyph::Down);
        layoutDirection() == Qt::LeftToRight ? room.setRight(room.right() - kArrowRoom)
                                             : room.setLeft(room.left() + kArrowRoom);
    }
    paintText(painter, room, Qt::AlignCenter, m_action->text().trimmed());
}

void CommandButton::paintLarge(QPainter& painter, QRect room) const {
    paintIcon(painter,
              QRect(room.left() + (room.width() - kLargeIcon) / 2, room.top(), kLargeIcon, kLargeIcon));
    const QStringList lines = captionLines();
    const int height = fontMetrics().height();
    QRect line(room.left(), room.top() + kLargeIcon + kPadY, room.width(), height);
    for (const QString& text : lines) {
        if (&text == &lines.back() && m_opensMenu) {
            const int width = std::min(textWidth(fontMetrics(), text) + kArrowRoom, line.width());
            line = QStyle::alignedRect(layoutDirection(), Qt::AlignHCenter, QSize(width, height), line);
            const QRect arrow(line.right() - kArrow + 1, line.top(), kArrow, height);
            paintGlyph(painter, QStyle::visualRect(layoutDirection(), line, arrow), Glyph::Down);
            line = QStyle::visualRect(layoutDirection(), line, line.adjusted(0, 0, -kArrowRoom, 0));
        }
        paintText(painter, line, Qt::AlignHCenter, text);
        line.translate(0, height);
    }
}

void CommandButton::paintRow(QPainter& painter, QRect room) const {
    if (m_glyph != Glyph::None) {
        paintGlyph(painter, room, m_glyph);
        return;
    }
    const auto visual = [this, room](const QRect& box) {
        return QStyle::visualRect(layoutDirection(), room, box);
    };
    QRect rest = room;
    if (m_opensMenu) {
        paintGlyph(painter, visual(QRect(rest.right() - kArrow + 1, rest.top(), kArrow, rest.height())),
                   Glyph::Down);
        rest.setRight(rest.right() - kArrowRoom);
    }
    if (m_hasIcon) {
        const int side = smallIconSide(fontMetrics());
        const int left = m_form == Form::Icon ? rest.left() + (rest.width() - side) / 2 : rest.left();
        paintIcon(painter, visual(QRect(left, rest.top() + (rest.height() - side) / 2, side, side)));
        if (m_form == Form::Icon) {
            return;
        }
        rest.setLeft(rest.left() + side + kGap);
    }
    const Qt::Alignment side = m_form == Form::Icon ? Qt::AlignHCenter : Qt::AlignLeft;
    paintText(painter, visual(rest), QStyle::visualAlignment(layoutDirection(), side), m_action->text());
}

void CommandButton::paintIcon(QPainter& painter, const QRect& room) const {
    m_action->icon().paint(&painter, room, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void CommandButton::paintText(QPainter& painter, const QRect& room, Qt::Alignment alignment,
                              const QString& text) const {
    if (room.width() <= 0) {
        return;
    }
    const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    const int mnemonic = underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    const QFontMetrics metrics = painter.fontMetrics();
    painter.drawText(room, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine | mnemonic,
                     metrics.elidedText(text, Qt::ElideRight, room.width(), Qt::TextShowMnemonic));
}

void CommandButton::paintGlyph(QPainter& painter, const QRect& room, Glyph glyph) const {
    const QPointF c = QRectF(room).center();
    QPainterPath path;
    const auto chevron = [&path](QPointF from, QPointF tip, QPointF to) {
        path.moveTo(from);
        path.lineTo(tip);
        path.lineTo(to);
    };
    if (glyph == Glyph::More) {
        for (const double x : {-4.0, 1.0}) {
            chevron(c + QPointF(x, -4), c + QPointF(x + 4, 0), c + QPointF(x, 4));
        }
    } else {
        const double foot = glyph == Glyph::Up ? 1.75 : -1.75;
        chevron(c + QPointF(-3.5, foot), c + QPointF(0, -foot), c + QPointF(3.5, foot));
    }
    painter.save();
    painter.setPen(
        QPen(palette().color(QPalette::ButtonText), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}

} // namespace tessel
