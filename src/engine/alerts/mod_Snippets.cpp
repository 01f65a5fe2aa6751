#include "engine/alerts/mod_Snippets.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_QuotedRecords.h"

namespace tessel {

namespace {
constexpr qint64 kMaxFileBytes = 1 << 20;
} // namespace

void Snippets::LoadSnippets() {
    m_list.clear();
    QByteArray bytes;
    if (readFileStart(m_folders.dataFile(kSnippetFile), kMaxFileBytes, bytes)) {
        for (const QString& text : readQuotedRecords(bytes, kMostSnippets).records) {
            m_list += plainRecord(text).left(kLongestSnippet);
        }
        m_list.removeAll(QString());
    }
    emit changed();
}

bool Snippets::AddSnippit(const QString& text) {
    if (text.trimmed().isEmpty()) {
        return false;
    }
    m_list.prepend(text.left(kLongestSnippet));
    m_list = m_list.mid(0, kMostSnippets);
    SaveSnippit();
    emit changed();
    return true;
}

void Snippets::remove(int row) {
    if (row >= 0 && row < m_list.size()) {
        m_list.removeAt(row);
        SaveSnippit();
        emit changed();
    }
}

int Snippets::move(int row, int step) {
    const int to = row + step;
    if (row < 0 || row >= m_list.size() || to < 0 || to >= m_list.size()) {
        return row;
    }
    m_list.move(row, to);
    SaveSnippit();
    emit changed();
    return to;
}

bool Snippets::SaveSnippit() {
    const QString path = m_folders.dataFile(kSnippetFile);
    m_unsaved = !replaceFile(path, writeQuotedRecords(m_list));
    emit saved(path, !m_unsaved);
    return !m_unsaved;
}

void Snippets::tryAgain() {
    if (m_unsaved) {
        SaveSnippit();
    }
}

} // namespace tessel
