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

    // Puts a text at the top and saves. False for an empty one, which is not taken; the oldest gives
    // way when there are too many.
    bool AddSnippit(const QString& text);
    // Rows beyond the list change nothing.
    void remove(int row);
    // Moves an entry by one place up (-1) or down (1). The place where it is then.
    int move(int row, int step);
    // Writes the list; false when it did not reach the file.
    bool SaveSnippit() const;

signals:
    void changed();

private:
    const Folders& m_folders;
    QStringList m_list;
};

} // namespace tessel
