// The parts of a ribbon: a group of buttons that can take less room, the row of tabs, and the rule by
// which groups give way.
#pragma once

#include "controls/bars/CommandBarsButton.h"

#include <QWidget>

#include <array>
#include <vector>

namespace tessel {

// From the widest to none at all.
enum class GroupForm { Full, Small, Icons, Hidden };
inline constexpr int kGroupForms = 4;

using GroupWidths = std::array<int, kGroupForms>;

// The widest form of each group with which all are in the room. The last group gives way first, step
// by step; when one is hidden altogether, `moreWidth` is kept free for the button that leads to it.
std::vector<GroupForm> fitGroups(const std::vector<GroupWidths>& groups, int room, int moreWidth);

// A widget that a screen reader learns to be a row of tabs.
class RibbonTabRow : public QWidget {
    Q_OBJECT
public:
    explicit RibbonTabRow(QWidget* parent);
};

class RibbonGroupBox : public QWidget {
    Q_OBJECT
public:
    RibbonGroupBox(const QString& caption, QWidget* parent);

    void add(CommandButton* button, bool large);
    const QString& caption() const { return m_caption; }
    std::vector<CommandButton*> wanted() const;
    bool isWanted() const { return !wanted().empty(); }

    GroupWidths widths() const;
    // The same for all groups in this font.
    static int heightIn(const QFontMetrics& metrics, const QFontMetrics& captionMetrics, bool captions);
    static QFont captionFont(const QFont& font);
    // Places the buttons; `captioned` when any group of the ribbon has a caption.
    void arrange(GroupForm form, bool captioned);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Member {
        CommandButton* button = nullptr;
        bool large = false;
    };

    // Goes through the columns of the form; gives back the width of all. `place` hears of each button,
    // its form, the left edge and the width of its column, and its row in it.
    template <typename Place> int columns(GroupForm form, const Place& place) const;

    QString m_caption;
    std::vector<Member> m_members;
    bool m_captioned = false;
};

} // namespace tessel
