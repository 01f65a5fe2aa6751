// The statuses that an office shares, as they stand in shared.dat.
#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <vector>

namespace tessel {

class Folders;
class INIData;

struct SharedStatusEntry {
    bool Active = false;
    QString Label;
    QString Tone; // number of a favorite tone in decimal, "0" for none
};

// One line of a list to choose a shared status from.
struct SharedStatusChoice {
    QString label;
    int index; // into the table
};

class SharedStatus : public QObject {
    Q_OBJECT
public:
    static constexpr int kCount = 25; // records of the table
    static constexpr int kUsed = 20;  // of these stand in the file

    SharedStatus(const INIData& data, const Folders& folders) : m_data(data), m_folders(folders) {}

    // Fills the table from shared.dat. Without the file the table stays as it is.
    void LoadSharedStatus();
    // Whether shared.dat was there at the last load.
    bool fileThere() const { return m_fileThere; }
    // Entry `index`; an empty one outside 0 to 24.
    const SharedStatusEntry& entry(int index) const;
    // The active labels in the table's order; none without a file.
    std::vector<SharedStatusChoice> FillSharedStatusList() const;

signals:
    // The file was looked at anew, whether or not it is there.
    void loaded();

private:
    const INIData& m_data;
    const Folders& m_folders;
    std::array<SharedStatusEntry, kCount> m_table;
    bool m_fileThere = false;
};

} // namespace tessel
