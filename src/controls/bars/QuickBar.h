// A slim row of commands beside or over a view. Captions are cut where there is no room for all.
#pragma once

#include "controls/bars/CommandBarsBar.h"

#include <vector>

namespace tessel {

// Shares `room` among widths: what is too wide gives way first, down to its least. The sum is more
// than the room only when even the least ones are.
std::vector<int> shareRoom(const std::vector<int>& wanted, const std::vector<int>& least, int room);

class QuickBar : public CommandBar {
    Q_OBJECT
public:
    QuickBar(CommandSet& commands, const std::vector<int>& ids, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void layOut() override;
    void fillMenu(CommandButton& button, QMenu& menu) override;
    CommandButton* standIn(int) const override { return m_more; }

private:
    std::vector<CommandButton*> wanted() const;
    int least(const CommandButton& button) const;
    int rowHeight() const;

    std::vector<CommandButton*> m_row;
    std::vector<CommandButton*> m_hidden; // have no room
    CommandButton* m_more;
};

} // namespace tessel
