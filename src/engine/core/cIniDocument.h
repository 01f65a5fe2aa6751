// The text of one INI file: lookup of its keys, and edits that leave every other line as it was.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace tessel {

// Sections and keys are matched without regard to case. A section that stands twice counts as one,
// and of a key that stands twice the first holds. Lines that are no section, key or comment are kept
// and mean nothing. A line ends with CR LF, LF or CR; a byte order mark before it is no part of it.
class cIniDocument {
public:
    using KeyValue = std::pair<QString, QString>;
    struct Change {
        QString section;
        QString key;
        std::optional<QString> value; // none: the key is to go, or without a key the section
    };

    cIniDocument() = default;
    explicit cIniDocument(QByteArray bytes);

    // Whether a line made of these could be read back.
    static bool usable(const QString& section, const QString& key);
    // Whether two names mean the same section or key.
    static bool sameName(const QString& one, const QString& other);

    const QByteArray& bytes() const { return m_bytes; }

    // True when this was no such file, or is none any more: it holds zero bytes, or no section at all.
    // An empty file is in order.
    bool damaged() const;

    // The value without outer blanks, at most `kMaxIniValue` characters; nothing if the key is absent.
    std::optional<QString> value(const QString& section, const QString& key) const;
    // False, and nothing changes, when the names are not `usable`.
    bool setValue(const QString& section, const QString& key, const QString& value);
    void removeKey(const QString& section, const QString& key);
    void removeSection(const QString& section);

    // Section names in the order of the file, each once, as first written.
    QStringList sections() const;
    // Keys and values of a section in the order of the file.
    std::vector<KeyValue> entries(const QString& section) const;

private:
    struct Line {
        enum class Kind { Other, Section, Key };
        Kind kind = Kind::Other;
        qsizetype begin = 0; // of the line
        qsizetype value = 0; // behind the equals sign of a key
        qsizetype end = 0;   // before the line's end
        qsizetype next = 0;  // of the next line
        QString name;        // of the section or key, as written
        QString section;     // the folded name of the section that the line stands in
    };

    void parse();
    QString lineValue(const Line& line) const;
    void erase(const std::vector<const Line*>& lines);

    QByteArray m_bytes;
    QByteArray m_lineEnd = "\n";
    std::vector<Line> m_lines;
    QHash<QString, qsizetype> m_keys; // folded section, separator, folded key: index of the line
};

} // namespace tessel
