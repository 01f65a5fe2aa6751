// The page of the nine quick statuses.
#pragma once

#include "engine/presence/mod_LocalStatus.h"
#include "windows/options/OptionPage.h"

#include <array>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tessel {

class KeyFilterEdit;

class QuickStatusPage : public OptionPage {
    Q_OBJECT
public:
    explicit QuickStatusPage(Station& station, QWidget* parent = nullptr);

    // Writes what was changed. False, with the focus in the field, when a text is one character long.
    bool SaveStatus();
    bool modified() const { return m_modified; }
    // Puts the focus into a slot's text.
    void choose(int slot);

signals:
    void modifiedChanged();

private:
    struct Slot {
        QComboBox* message; // cmbStatus
        KeyFilterEdit* text;
        KeyFilterEdit* name;         // fltQuickName
        QComboBox* hotKey = nullptr; // cmbHK
        QLabel* notice = nullptr;
    };

    QWidget* makeSlots();
    void makeHotKey(int slot);
    void LoadStatus();
    void LoadQuickHotKeys();
    void showNotices();
    void clearSlot(int slot);
    void makeShortcut(int slot);
    void setModified(bool modified);
    int pickedShared(const Slot& slot) const;
    QString roadText() const;

    Station& m_station;
    std::array<Slot, LocalStatus::kQuickCount> m_slots{};
    QLabel* m_road = nullptr; // how keys reach the program in this session
    QPushButton* m_save = nullptr;
    bool m_modified = false;
    bool m_loading = false;
};

} // namespace tessel
