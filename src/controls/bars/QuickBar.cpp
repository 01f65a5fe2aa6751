#include "controls/bars/QuickBar.h"

#include "controls/bars/CommandBars.h"

#include <QMenu>
#include <QStyle>

#include <algorithm>
#include <numeric>

namespace tessel {

namespace {

constexpr int kGap = 2;
constexpr int kLeastLetters = 6; // of a caption beside an icon; with less room the icon stands alone

} // namespace

std::vector<int> shareRoom(const std::vector<int>& wanted, const std::vector<int>& least, int room) {
    const auto capped = [&](int cap) {
        std::vector<int> widths(wanted.size());
        std::ranges::transform(wanted, least, widths.begin(),
                               [cap](int want, int low) { return std::max(std::min(want, cap), low); });
        return widths;
    };
    const auto sum = [](const std::vector<int>& widths) {
        return std::accumulate(widths.begin(), widths.end(), 0);
    };
    if (sum(wanted) <= room) {
        return wanted;
    }
    int fits = 0;
    int over = std::max(1, room + 1);
    while (over - fits > 1) {
        const int cap = (fits + over) / 2;
        (sum(capped(cap)) <= room ? fits : over) = cap;
    }
    return capped(fits);
}

QuickBar::QuickBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent)
    : CommandBar(commands, parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Quick commands"));
    for (const int id : ids) {
        if (CommandButton* const made = addButton(id, 0, this); made != nullptr) {
            m_row.push_back(made);
        }
    }
    m_more = addMenuButton(tr("More commands"), CommandButton::Glyph::More, 0, this);
    m_more->setForm(CommandButton::Form::Icon);
}

std::vector<CommandButton*> QuickBar::wanted() const {
    std::vector<CommandButton*> all;
    std::ranges::copy_if(m_row, std::back_inserter(all), &CommandButton::isWanted);
    return all;
}

int QuickBar::least(const CommandButton& button) const {
    return std::min(button.sizeOf(CommandButton::Form::Icon).width(),
                    button.sizeOf(CommandButton::Form::Small).width());
}

int QuickBar::rowHeight() const {
    return m_more->sizeOf(CommandButton::Form::Small).height();
}

QSize QuickBar::sizeHint() const {
    int width = 0;
    for (const CommandButton* button : wanted()) {
        width += button->sizeOf(CommandButton::Form::Small).width() + kGap;
    }
    return {width, rowHeight()};
}

QSize QuickBar::minimumSizeHint() const {
    return {m_more->sizeHint().width(), rowHeight()};
}

void QuickBar::layOut() {
    std::vector<CommandButton*> shown = wanted();
    m_hidden.clear();
    std::vector<int> low;
    int total = 0;
    for (const CommandButton* button : shown) {
        low.push_back(least(*button) + kGap);
        total += low.back();
    }
    const int more = m_more->sizeHint().width();
    while (total > width() - (m_hidden.empty() ? 0 : more) && !shown.empty()) {
        m_hidden.insert(m_hidden.begin(), shown.back());
        total -= low.back();
        low.pop_back();
        shown.pop_back();
    }
    std::vector<int> widths;
    for (CommandButton* const button : shown) {
        button->setForm(CommandButton::Form::Small);
        widths.push_back(button->sizeHint().width() + kGap);
    }
    const std::vector<int> full = widths;
    const int room = width() - (m_hidden.empty() ? 0 : more);
    widths = shareRoom(full, low, room);
    // What cannot show some letters beside its icon leaves their room to the others.
    std::vector<int> sensible = full;
    const int letters = kLeastLetters * fontMetrics().averageCharWidth();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (commands().hasIcon(shown[i]->id()) && widths[i] < full[i] && widths[i] < low[i] + letters) {
            shown[i]->setForm(CommandButton::Form::Icon);
            sensible[i] = low[i];
        }
    }
    widths = shareRoom(sensible, low, room);

    int x = 0;
    const auto place = [this, &x](CommandButton* button, int width) {
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), {x, 0, width, height()}));
        button->show();
        x += width + kGap;
    };
    for (CommandButton* const button : m_row) {
        const auto at = std::ranges::find(shown, button);
        if (at == shown.end()) {
            button->hide();
            continue;
        }
        const int width = widths[static_cast<std::size_t>(at - shown.begin())] - kGap;
        place(button, width);
    }
    if (!m_hidden.empty()) {
        place(m_more, more);
    }
    m_more->setVisible(!m_hidden.empty());
}

void QuickBar::fillMenu(CommandButton&, QMenu& menu) {
    for (const CommandButton* button : m_hidden) {
        menu.addAction(button->action());
    }
}

} // namespace tessel
