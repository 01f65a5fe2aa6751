// Message groups: ten named lists of locations, for messages and doorbells to several at once.
#pragma once

#include <QObject>
#include <QString>

#include <array>

namespace tessel {

class cInifile;
class Folders;

struct MessageGroup {
    bool used = false;
    QString name;
    QString members; // recipient items joined by `ListMark`, no mark at the end
};

class Groups : public QObject {
    Q_OBJECT
public:
    static constexpr int kGroupCount = 10;

    Groups(cInifile& ini, const Folders& folders) : m_ini(ini), m_folders(folders) {}

    // Reads groups.dat. A slot without members is free, whatever its name.
    void LoadMessageGroups();
    void ClearMessageGroups();
    // `slot`: 0 to 9.
    const MessageGroup& at(int slot) const { return m_groups[static_cast<std::size_t>(slot)]; }
    // What stands on a group's button and in its tip.
    QString caption(int slot) const;
    QString tip(int slot) const;

    // Writes the slot and reads the table anew. An empty name becomes "Group " and the slot's number,
    // counted from 1. False when it did not reach the file, or when the members are more than a key of
    // an INI file holds: then the slot stays as it was.
    bool SaveGroup(int slot, const QString& name, const QString& members);
    // Frees the slot.
    bool DeleteGroup(int slot);

    static QString defaultName(int slot) { return QStringLiteral("Group %1").arg(slot + 1); }

signals:
    void changed();

private:
    void aim(int slot);

    cInifile& m_ini;
    const Folders& m_folders;
    std::array<MessageGroup, kGroupCount> m_groups;
};

inline const QString kCreateGroup = QStringLiteral("Create Group");

} // namespace tessel
