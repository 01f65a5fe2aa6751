#include "engine/core/mod_Folders.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "records/mod_PlainText.h"

#include <QFile>

namespace tessel {

namespace {

constexpr qint64 kMaxFirstCopyBytes = 1 << 20;

QString below(const QString& folder) {
    return folder + kProductName + u'/';
}

// A client's name becomes one folder, never a way out of the folder above.
QString folderName(QString clientName) {
    for (QChar& c : clientName) {
        if (c == u'/' || c == u'\\' || isControl(c)) {
            c = u'_';
        }
    }
    return clientName == u"." || clientName == u".." ? QStringLiteral("_") : clientName;
}

} // namespace

QString Folders::SpecialFolder(FolderId id) const {
    switch (id) {
    case FolderId::Documents:
        return m_facts.documents;
    case FolderId::Desktop:
        return m_facts.desktop;
    case FolderId::AppData:
        return m_facts.appData;
    case FolderId::CommonAppData:
        return m_facts.commonAppData;
    case FolderId::System:
        return m_facts.system;
    }
    return {};
}

void Folders::SetupFolders(const std::function<bool(const QString&)>& loadRestrictions) {
    m_data = below(SpecialFolder(FolderId::AppData));
    m_documents = below(SpecialFolder(FolderId::Documents));
    m_desktop = SpecialFolder(FolderId::Desktop);
    m_system = SpecialFolder(FolderId::System);
    for (const QString& folder : {m_data, below(SpecialFolder(FolderId::CommonAppData)), m_documents}) {
        MakeFolder(folder);
    }

    // The restrictions are looked for in the shared folder, whichever folder is used in the end. Each
    // client of a shared server then has files, and so a location, of its own.
    const bool folderPerClient = loadRestrictions(m_data);
    if (m_facts.IsRemoteSession && folderPerClient) {
        m_data += folderName(m_facts.ClientLoginName) + u'/';
        MakeFolder(m_data);
    }

    copyFirst(kStatusFile);
    copyFirst(kSnippetFile);
}

void Folders::syncFile(const QString& path) const {
    if (m_facts.syncFile) {
        m_facts.syncFile(path);
    }
}

void Folders::copyFirst(const QString& name) const {
    QByteArray bytes;
    if (!QFile::exists(dataFile(name)) && readWholeFile(program() + name, kMaxFirstCopyBytes, bytes)) {
        replaceFile(dataFile(name), bytes);
    }
}

} // namespace tessel
