// The folders of the station and the first copies of its files.
#pragma once

#include "engine/ports/cSystemFacts.h"

#include <QString>

#include <functional>

namespace tessel {

// Numbers of the system's folders.
enum class FolderId { Documents = 5, Desktop = 16, AppData = 26, CommonAppData = 35, System = 41 };

class Folders {
public:
    explicit Folders(const SystemFacts& facts) : m_facts(facts) {}

    // Finds and makes the folders, and copies the first status.dat and snippet.dat into place. What
    // cannot be made is left out without a word.
    //
    // `loadRestrictions` is called once the data folder is known, and tells whether each client of
    // a remote session gets a data folder of its own.
    void SetupFolders(const std::function<bool(const QString& dataFolder)>& loadRestrictions);

    // The path of a system folder with a closing slash, or empty.
    QString SpecialFolder(FolderId id) const;

    const QString& data() const { return m_data; }
    const QString& documents() const { return m_documents; }
    const QString& desktop() const { return m_desktop; }
    const QString& system() const { return m_system; }
    const QString& program() const { return m_facts.programFolder; }

    // The path of a file of the data folder.
    QString dataFile(const QString& name) const { return m_data + name; }

    // Returns when what was written to the file stands on the disk, if the system can tell.
    void syncFile(const QString& path) const;

private:
    void copyFirst(const QString& name) const;

    const SystemFacts& m_facts;
    QString m_data;
    QString m_documents;
    QString m_desktop;
    QString m_system;
};

} // namespace tessel
