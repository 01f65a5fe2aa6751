#include "engine/core/cInifile.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Limits.h"

#include <QFileInfo>

namespace tessel {

cInifile::Cached& cInifile::load() {
    // The bytes are read each time and only the parsing is spared: time stamps are too coarse to tell
    // apart two writes of the same length, and stations of one account may share a file.
    Cached& cached = m_files[Path];
    QByteArray bytes;
    const bool readable = readWholeFile(Path, static_cast<qint64>(kMaxIniBytes), bytes);
    cached.exists = readable || QFileInfo::exists(Path);
    cached.writable = readable || !cached.exists;
    if (cached.document.bytes() != bytes) {
        cached.document = cIniDocument(bytes);
    }
    return cached;
}

bool cInifile::store(Cached& cached, const QByteArray& before) {
    const QByteArray& now = cached.document.bytes();
    if (now == before && (cached.exists || now.isEmpty())) {
        return cached.writable;
    }
    return cached.writable && static_cast<std::size_t>(now.size()) <= kMaxIniBytes && replaceFile(Path, now);
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
    const bool stored = store(cached, before) && usable;
    return finish(stored, stored ? 1 : 0);
}

bool cInifile::DeleteKey() {
    Cached& cached = load();
    const QByteArray before = cached.document.bytes();
    cached.document.removeKey(Section, Key);
    const bool stored = store(cached, before);
    return finish(stored, stored ? 1 : 0);
}

bool cInifile::DeleteSection() {
    Cached& cached = load();
    const QByteArray before = cached.document.bytes();
    cached.document.removeSection(Section);
    const bool stored = store(cached, before);
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
    const QByteArray before = cached.document.bytes();
    cached.document.removeKeys(Section);
    bool usable = true;
    for (const auto& [key, value] : given.entries({})) {
        usable = cached.document.setValue(Section, key, value) && usable;
    }
    const bool stored = store(cached, before) && usable;
    return finish(stored, stored ? 1 : 0);
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
