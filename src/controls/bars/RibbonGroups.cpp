#include "controls/bars/RibbonGroups.h"

#include "controls/list/ReportText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>
#include <numeric>

namespace tessel {

namespace {

constexpr int kRows = 3; // small buttons over each other
constexpr int kPad = 4;  // around the buttons of a group
constexpr int kColumnGap = 2;
constexpr double kCaptionSize = 0.85;

QAccessibleInterface* makeAccess(const QString& className, QObject* object) {
    if (className == QLatin1String(RibbonTabRow::staticMetaObject.className())) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::PageTabList);
    }
    return className == QLatin1String(RibbonGroupBox::staticMetaObject.className())
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Grouping)
               : nullptr;
}

void installAccess() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(makeAccess);
        return true;
    }();
}

int largeHeight(const QFontMetrics& metrics) {
    const int small = std::max(metrics.height(), CommandButton::smallIconSide(metrics)) + 6;
    return std::max(kRows * small, 41 + 2 * metrics.height());
}

} // namespace

std::vector<GroupForm> fitGroups(const std::vector<GroupWidths>& groups, int room, int moreWidth) {
    std::vector<GroupForm> forms(groups.size(), GroupForm::Full);
    const auto widthOf = [&](std::size_t i) { return groups[i][static_cast<std::size_t>(forms[i])]; };
    int total = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        total += widthOf(i);
    }
    for (const GroupForm form : {GroupForm::Small, GroupForm::Icons, GroupForm::Hidden}) {
        if (form == GroupForm::Hidden && total > room) {
            total += moreWidth;
        }
        for (std::size_t i = groups.size(); i-- > 0 && total > room;) {
            const int less = widthOf(i) - groups[i][static_cast<std::size_t>(form)];
            // A single button is narrower with its icon above the caption than beside it.
            if (less > 0) {
                forms[i] = form;
                total -= less;
            }
        }
    }
    // A big step may have made room that another group can use.
    for (std::size_t i = 0; i < groups.size(); ++i) {
        for (std::size_t form = 0; form < static_cast<std::size_t>(forms[i]); ++form) {
            const int more = groups[i][form] - widthOf(i);
            if (forms[i] != GroupForm::Hidden && total + more <= room) {
                forms[i] = static_cast<GroupForm>(form);
                total += more;
            }
        }
    }
    return forms;
}

RibbonTabRow::RibbonTabRow(QWidget* parent) : QWidget(parent) {
    installAccess();
}

RibbonGroupBox::RibbonGroupBox(const QString& caption, QWidget* parent)
    : QWidget(parent), m_caption(singleLine(caption)) {
    installAccess();
    setAccessibleName(m_caption);
}

void RibbonGroupBox::add(CommandButton* button, bool large) {
    m_members.push_back({button, large});
}

std::vector<CommandButton*> RibbonGroupBox::wanted() const {
    std::vector<CommandButton*> all;
    for (const Member& member : m_members) {
        if (member.button->isWanted()) {
            all.push_back(member.button);
        }
    }
    return all;
}

QFont RibbonGroupBox::captionFont(const QFont& font) {
    QFont small = font;
    small.setPointSizeF(std::max(7.0, font.pointSizeF() * kCaptionSize));
    return small;
}

int RibbonGroupBox::heightIn(const QFontMetrics& metrics, const QFontMetrics& captionMetrics, bool captions) {
    return largeHeight(metrics) + 2 * kPad + (captions ? captionMetrics.height() : 0);
}

template <typename Place> int RibbonGroupBox::columns(GroupForm form, const Place& place) const {
    const auto formOf = [form](const Member& member) {
        return form == GroupForm::Icons                  ? CommandButton::Form::Icon
               : form == GroupForm::Full && member.large ? CommandButton::Form::Large
                                                         : CommandButton::Form::Small;
    };
    int x = kPad;
    std::vector<Member> column;
    int width = 0;
    const auto close = [&] {
        for (std::size_t row = 0; row < column.size(); ++row) {
            place(column[row].button, formOf(column[row]), QPoint(x, static_cast<int>(row)), width);
        }
        x += column.empty() ? 0 : width + kColumnGap;
        column.clear();
        width = 0;
    };
    for (const Member& member : m_members) {
        if (!member.button->isWanted()) {
            continue;
        }
        const bool large = formOf(member) == CommandButton::Form::Large;
        if (large || column.size() == kRows) {
            close();
        }
        column.push_back(member);
        width = std::max(width, member.button->sizeOf(formOf(member)).width());
        if (large) {
            close();
        }
    }
    close();
    return x - kColumnGap + kPad + 1; // the line behind it
}

GroupWidths RibbonGroupBox::widths() const {
    GroupWidths widths{};
    if (isWanted()) {
        for (const GroupForm form : {GroupForm::Full, GroupForm::Small, GroupForm::Icons}) {
            widths[static_cast<std::size_t>(form)] = columns(form, [](auto*, auto, auto, auto) {});
        }
    }
    return widths;
}

void RibbonGroupBox::arrange(GroupForm form, bool captioned) {
    m_captioned = captioned;
    const int height = largeHeight(fontMetrics());
    columns(form, [&](CommandButton* button, CommandButton::Form shape, QPoint at, int width) {
        button->setForm(shape);
        if (shape == CommandButton::Form::Large) {
            button->setGeometry(at.x(), kPad, width, height);
        } else {
            const int top = at.y() * height / kRows;
            button->setGeometry(at.x(), kPad + top, width, (at.y() + 1) * height / kRows - top);
        }
        if (layoutDirection() == Qt::RightToLeft) {
            button->move(this->width() - button->x() - width, button->y());
        }
        button->show();
    });
    for (const Member& member : m_members) {
        if (!member.button->isWanted()) {
            member.button->hide();
        }
    }
    update();
}

void RibbonGroupBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int line = layoutDirection() == Qt::LeftToRight ? width() - 1 : 0;
    painter.fillRect(QRect(line, 2 * kPad, 1, height() - 4 * kPad), palette().color(QPalette::Mid));
    if (m_captioned && !m_caption.isEmpty()) {
        painter.setFont(captionFont(font()));
        painter.setPen(palette().color(QPalette::PlaceholderText));
        const QRect room = rect().adjusted(kPad, kPad + largeHeight(fontMetrics()), -kPad, -1);
        // The first letters of a caption tell nobody anything.
        if (painter.fontMetrics().horizontalAdvance(m_caption) <= room.width()) {
            painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, m_caption);
        }
    }
}

} // namespace tessel
