// The buttons of the ten message groups: a used slot's is pressed, a free one's makes a group.
#pragma once

#include <QObject>

#include <array>

class QPushButton;
class QWidget;

namespace tessel {

class Station;

class GroupButtons : public QObject {
    Q_OBJECT
public:
    static constexpr int kCount = 10;

    // The buttons are made on `parent` and not laid out. `keys`: their tips name F1 to F10.
    GroupButtons(Station& station, bool keys, QWidget* parent);

    // `slot`: 0 to 9.
    QPushButton* button(int slot) const { return m_buttons[static_cast<std::size_t>(slot)]; }
    // Opens the editor of the slot over the window.
    void edit(int slot);

signals:
    // The button of a group was pressed.
    void chosen(int slot);
    // The editor that a free slot's button opened has made a group.
    void made(int slot);
    // The groups are others now.
    void loaded();

private:
    void LoadGroups();
    void press(int slot);

    Station& m_station;
    QWidget* m_parent;
    bool m_keys;
    std::array<QPushButton*, kCount> m_buttons{}; // cmdGroup 1 to 10
};

} // namespace tessel
