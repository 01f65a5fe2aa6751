// Snippets: short texts kept for quick entry, in snippet.dat.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class Folders;

class Snippets : public QObject {
    Q_OBJECT
public:
    static constexpr int kMostSnippets = 500;
    static constexpr int kLongestSnippet = 1000;

    explicit Snippets(const Folders& folders) : m_folders(folders) {}

    // Reads the file. What cannot be read is left out.
    void LoadSnippets();
    const QStringList& list() const { return m_list; }

    // Puts a text at the top and saves. False for blanks alone, which are not taken; the oldest gives
    // way when there are too many.
    bool AddSnippit(const QString& text);
    // Rows beyond the list change nothing.
    void remove(int row);
    // Moves an entry by one place up (-1) or down (1). The place where it is then.
    int move(int row, int step);
    // Writes the list; false when it did not reach the file.
    bool SaveSnippit();
    // The same, if the last time it did not.
    void tryAgain();

signals:
    void changed();
    // The file was written, or could not be.
    void saved(const QString& path, bool stored);

private:
    const Folders& m_folders;
    QStringList m_list;
    bool m_unsaved = false;
};

} // namespace tessel
