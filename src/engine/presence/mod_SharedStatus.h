// The statuses that an office shares, as they stand in shared.dat: read, edited, sent and taken over.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

namespace tessel {

class Folders;
class INIData;
class Identity;
class NetworkProtocol;
struct OwnState;

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
    static constexpr int kShortestLabel = 2;
    static constexpr int kLongestLabel = 25;

    // Who saved or sent the list, and when. In the order of the packet.
    struct Author {
        QString user;
        QString host;
        QString id;
        QString time;
        QString date;
        QString ver;
    };
    // One row of the editor.
    struct Row {
        QString text;
        int tone = 0; // 0: none
    };

    SharedStatus(const OwnState& own, INIData& data, const Folders& folders, Clock& clock,
                 NetworkProtocol& protocol, Identity& ids);

    // Fills the table from shared.dat. Without the file the table stays as it is.
    void LoadSharedStatus();
    // Whether shared.dat was there at the last load.
    bool fileThere() const { return m_fileThere; }
    // Entry `index`; an empty one outside 0 to 24.
    const SharedStatusEntry& entry(int index) const;
    // The active labels in the table's order; none without a file.
    std::vector<SharedStatusChoice> FillSharedStatusList() const;
    Author LoadAuthorInformation() const;

    // Saves the editor's rows, with the own location as author. A row of fewer than 2 characters is
    // unused. The number of the first row with exactly one character, and nothing is saved; -1
    // otherwise. Rows without any text at all leave the file as it is.
    int SaveStatus(const std::vector<Row>& rows);
    // Whether any row has a text that can be used.
    static bool isUpdateable(const std::vector<Row>& rows);
    // Sends the list of the file, if there is one, to all locations that are online.
    void SendToAllUsers();
    // Has all other locations delete their list.
    void sendRemoveAll();
    // Takes over a list from elsewhere. The table follows at once, the file once a second at most.
    void StoreSharedStatus(const QString& Header, const QString& Entries);
    // Removes the file; the table stays as it is until something is loaded again.
    void DeleteSharedStatus();
    // Writes what still waits for its second.
    void writePending();

    Timer tmrStoreShared;

signals:
    // The file was looked at anew, whether or not it is there.
    void loaded();
    // The list was deleted: quick statuses that point into it are to be read anew.
    void deleted();

private:
    struct List {
        Author author;
        std::array<QString, kUsed> entries;
    };

    void take(int index, const QString& value);
    void write(const List& list, bool unusedToo); // without `unusedToo` keys that are not used go

    const OwnState& m_own;
    INIData& m_data;
    const Folders& m_folders;
    Clock& m_clock;
    NetworkProtocol& m_protocol;
    Identity& m_ids;
    std::array<SharedStatusEntry, kCount> m_table;
    bool m_fileThere = false;
    std::optional<List> m_pending; // newer than the file
};

} // namespace tessel
