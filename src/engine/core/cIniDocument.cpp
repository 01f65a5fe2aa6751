#include "engine/core/cIniDocument.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Limits.h"

#include <QSet>

#include <algorithm>

namespace tessel {

namespace {

QString folded(const QString& name) {
    return name.trimmed().toCaseFolded();
}

QString indexKey(const QString& foldedSection, const QString& key) {
    return foldedSection + u'\n' + folded(key);
}

bool hasLineBreak(const QString& text) {
    return text.contains(u'\n') || text.contains(u'\r') || text.contains(QChar(0));
}

// Some editors put it before the first line. Behind another line it may stand where two files were
// joined; it means nothing there either.
constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

bool isBreak(char c) {
    return c == '\n' || c == '\r';
}

// A name with a character that has no code would come back as another name.
bool hasCodes(const QString& name) {
    return toText(toBytes(name)) == name;
}

bool usableSection(const QString& section) {
    return !hasLineBreak(section) && !section.contains(u']') && hasCodes(section);
}

bool usableKey(const QString& key) {
    const QString bare = key.trimmed();
    return !bare.isEmpty() && !hasLineBreak(bare) && !bare.contains(u'=') && !bare.startsWith(u'[') &&
           !bare.startsWith(u';') && !bare.startsWith(toText(kByteOrderMark)) && hasCodes(bare);
}

// A line break inside a value would make lines of its own out of the rest.
QString oneLine(QString value) {
    for (QChar& c : value) {
        if (c == u'\n' || c == u'\r' || c == QChar(0)) {
            c = u' ';
        }
    }
    return value.trimmed();
}

} // namespace

cIniDocument::cIniDocument(QByteArray bytes) : m_bytes(std::move(bytes)) {
    parse();
}

bool cIniDocument::usable(const QString& section, const QString& key) {
    return usableSection(section) && usableKey(key);
}

bool cIniDocument::sameName(const QString& one, const QString& other) {
    return folded(one) == folded(other);
}

void cIniDocument::parse() {
    m_lines.clear();
    m_keys.clear();
    QString section;
    qsizetype pos = 0;
    while (pos < m_bytes.size()) {
        Line line;
        line.begin = pos;
        line.end = std::find_if(m_bytes.cbegin() + pos, m_bytes.cend(), isBreak) - m_bytes.cbegin();
        line.next = std::min(line.end + 1, m_bytes.size());
        if (line.next < m_bytes.size() && m_bytes[line.end] == '\r' && m_bytes[line.next] == '\n') {
            ++line.next;
        }
        pos = line.next;

        QByteArrayView text = QByteArrayView(m_bytes).sliced(line.begin, line.end - line.begin);
        if (text.startsWith(kByteOrderMark)) {
            text = text.sliced(kByteOrderMark.size());
        }
        const qsizetype name = line.end - text.size();
        text = text.trimmed();
        if (text.startsWith('[')) {
            const qsizetype close = text.indexOf(']');
            line.kind = Line::Kind::Section;
            line.name = toText(close < 0 ? text.sliced(1) : text.sliced(1, close - 1)).trimmed();
            section = folded(line.name);
        } else if (!text.isEmpty() && !text.startsWith(';')) {
            const qsizetype equals = m_bytes.indexOf('=', name);
            if (equals >= 0 && equals < line.end) {
                line.name = toText(QByteArrayView(m_bytes).sliced(name, equals - name)).trimmed();
                line.value = equals + 1;
                line.kind = line.name.isEmpty() ? Line::Kind::Other : Line::Kind::Key;
            }
        }
        line.section = section;
        if (line.kind == Line::Kind::Key) {
            const QString key = indexKey(section, line.name);
            if (!m_keys.contains(key)) {
                m_keys.insert(key, static_cast<qsizetype>(m_lines.size()));
            }
        }
        m_lines.push_back(std::move(line));
    }
    if (!m_lines.empty()) {
        const Line& first = m_lines.front();
        m_lineEnd = first.next > first.end ? m_bytes.sliced(first.end, first.next - first.end) : "\n";
    }
}

bool cIniDocument::damaged() const {
    const auto isSection = [](const Line& line) { return line.kind == Line::Kind::Section; };
    return m_bytes.contains('\0') ||
           (!m_bytes.isEmpty() && std::none_of(m_lines.begin(), m_lines.end(), isSection));
}

QString cIniDocument::lineValue(const Line& line) const {
    const QByteArrayView raw = QByteArrayView(m_bytes).sliced(line.value, line.end - line.value).trimmed();
    return toText(raw.first(std::min<qsizetype>(raw.size(), kMaxIniValue)));
}

std::optional<QString> cIniDocument::value(const QString& section, const QString& key) const {
    const auto found = m_keys.constFind(indexKey(folded(section), key));
    if (found == m_keys.cend()) {
        return std::nullopt;
    }
    return lineValue(m_lines[static_cast<std::size_t>(*found)]);
}

bool cIniDocument::setValue(const QString& section, const QString& key, const QString& value) {
    if (!usable(section, key)) {
        return false;
    }
    const QString where = folded(section);
    const QByteArray bytes = toBytes(oneLine(value));
    const auto found = m_keys.constFind(indexKey(where, key));
    if (found != m_keys.cend()) {
        const Line& line = m_lines[static_cast<std::size_t>(*found)];
        m_bytes.replace(line.value, line.end - line.value, bytes);
        parse();
        return true;
    }

    // Behind the last line of the section that says something, so that blank lines before the next
    // section stay where they are.
    qsizetype at = -1;
    for (const Line& line : m_lines) {
        if (line.section == where && (line.kind == Line::Kind::Section || line.end > line.begin) &&
            (at >= 0 || line.kind == Line::Kind::Section)) {
            at = line.next;
        } else if (at >= 0 && line.kind == Line::Kind::Section) {
            break;
        }
    }
    QByteArray added = toBytes(key.trimmed()) + '=' + bytes + m_lineEnd;
    if (at < 0) {
        added.prepend('[' + toBytes(section.trimmed()) + ']' + m_lineEnd);
        if (!m_bytes.isEmpty() && !m_bytes.endsWith(m_lineEnd.back() + m_lineEnd) &&
            isBreak(m_bytes.back())) {
            added.prepend(m_lineEnd);
        }
        at = m_bytes.size();
    }
    if (at > 0 && !isBreak(m_bytes[at - 1])) {
        added.prepend(m_lineEnd);
    }
    m_bytes.insert(at, added);
    parse();
    return true;
}

void cIniDocument::erase(const std::vector<const Line*>& lines) {
    if (lines.empty()) {
        return;
    }
    QByteArray kept;
    kept.reserve(m_bytes.size());
    qsizetype from = 0;
    for (const Line* line : lines) {
        kept += QByteArrayView(m_bytes).sliced(from, line->begin - from);
        from = line->next;
    }
    kept += QByteArrayView(m_bytes).sliced(from);
    m_bytes = kept;
    parse();
}

void cIniDocument::removeKey(const QString& section, const QString& key) {
    const QString where = folded(section);
    const QString name = folded(key);
    std::vector<const Line*> gone;
    for (const Line& line : m_lines) {
        if (line.kind == Line::Kind::Key && line.section == where && folded(line.name) == name) {
            gone.push_back(&line);
        }
    }
    erase(gone);
}

void cIniDocument::removeSection(const QString& section) {
    const QString where = folded(section);
    bool headed = false; // what stands before the first heading belongs to no section
    std::vector<const Line*> gone;
    for (const Line& line : m_lines) {
        headed = headed || line.kind == Line::Kind::Section;
        if (headed && line.section == where) {
            gone.push_back(&line);
        }
    }
    erase(gone);
}

QStringList cIniDocument::sections() const {
    QStringList names;
    QSet<QString> seen;
    for (const Line& line : m_lines) {
        if (line.kind == Line::Kind::Section && !seen.contains(line.section)) {
            seen.insert(line.section);
            names += line.name;
        }
    }
    return names;
}

std::vector<cIniDocument::KeyValue> cIniDocument::entries(const QString& section) const {
    const QString where = folded(section);
    std::vector<KeyValue> found;
    for (const Line& line : m_lines) {
        if (line.kind == Line::Kind::Key && line.section == where) {
            found.emplace_back(line.name, lineValue(line));
        }
    }
    return found;
}

} // namespace tessel
