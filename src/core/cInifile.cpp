#include "core/cInifile.h"

#include "core/mod_CodePage.h"
#include "core/mod_FileTools.h"
#include "core/mod_Limits.h"

#include <QDateTime>
#include <QFileInfo>

namespace tessel {

namespace {
// What tells a file that somebody else has changed from the one read last.
struct Stamp {
    qint64 modified = -1;
    qint64 size = -1;
};

Stamp stampOf(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) {
        return {};
    }
    return {info.lastModified().toMSecsSinceEpoch(), info.size()};
}
} // namespace

cInifile::Cached& cInifile::load() {
    Cached& cached = m_files[Path];
    const Stamp stamp = stampOf(Path);
    const bool first = cached.modified == -1 && cached.size == -1;
    if (!first && stamp.modified == cached.modified && stamp.size == cached.size) {
        return cached;
    }
    cached = {};
    cached.modified = stamp.modified;
    cached.size = stamp.size;
    QByteArray bytes;
    if (readWholeFile(Path, static_cast<qint64>(kMaxIniBytes), bytes)) {
        cached.document = cIniDocument(bytes);
        cached.writable = true;
    } else {
        cached.writable = stamp.size < 0;
    }
    return cached;
}

bool cInifile::store(Cached& cached) {
    const bool stored = cached.writable && static_cast<std::size_t>(cached.document.bytes().size()) <= kMaxIniBytes &&
                        replaceFile(Path, cached.document.bytes());
    if (!stored) {
        m_files.erase(Path);
        return false;
    }
    const Stamp stamp = stampOf(Path);
    cached.modified = stamp.modified;
    cached.size = stamp.size;
    return true;
}

bool cInifile::finish(bool success, qsizetype code) {
    Success = success;
    LastReturnCode = static_cast<int>(code);
    return success;
}

QString cInifile::Value() {
    const auto value = load().document.value(Section, Key);
    finish(value.has_value(), value.has_value() ? value->size() : Default.size());
    return value.value_or(Default);
}

bool cInifile::setValue(const QString& value) {
    return setValues({{Key, value}});
}

bool cInifile::setValues(const std::vector<cIniDocument::KeyValue>& values) {
    Cached& cached = load();
    const QByteArray before = cached.document.bytes();
    bool usable = true;
    for (const auto& [key, value] : values) {
        usable = cached.document.setValue(Section, key, value) && usable;
    }
    const bool stored = (cached.size >= 0 && cached.writable && cached.document.bytes() == before) || store(cached);
    return finish(usable && stored, usable && stored ? 1 : 0);
}

bool cInifile::DeleteKey() {
    Cached& cached = load();
    if (!cached.document.value(Section, Key).has_value()) {
        return finish(true, 1);
    }
    cached.document.removeKey(Section, Key);
    const bool stored = store(cached);
    return finish(stored, stored ? 1 : 0);
}

bool cInifile::DeleteSection() {
    Cached& cached = load();
    cached.document.removeSection(Section);
    const bool stored = store(cached);
    return finish(stored, stored ? 1 : 0);
}

QString cInifile::INISection() {
    QString block;
    for (const auto& [key, value] : load().document.entries(Section)) {
        block += key + u'=' + value + u'\n';
    }
    finish(true, block.size());
    return block;
}

bool cInifile::setINISection(const QString& block) {
    const cIniDocument given(toBytes(block));
    Cached& cached = load();
    for (const auto& [key, value] : cached.document.entries(Section)) {
        cached.document.removeKey(Section, key);
    }
    return setValues(given.entries({}));
}

QStringList cInifile::Sections() {
    const QStringList names = load().document.sections();
    finish(true, names.size());
    return names;
}

std::vector<cIniDocument::KeyValue> cInifile::EnumerateCurrentSection() {
    auto entries = load().document.entries(Section);
    finish(true, static_cast<qsizetype>(entries.size()));
    return entries;
}

std::vector<std::pair<QString, std::vector<cIniDocument::KeyValue>>> cInifile::EnumerateAllSections() {
    std::vector<std::pair<QString, std::vector<cIniDocument::KeyValue>>> all;
    const cIniDocument& document = load().document;
    for (const QString& section : document.sections()) {
        all.emplace_back(section, document.entries(section));
    }
    finish(true, static_cast<qsizetype>(all.size()));
    return all;
}

int cInifile::CLngDefault(const QString& text, int fallback) {
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    return ok ? number : fallback;
}

} // namespace tessel
