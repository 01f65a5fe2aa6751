#include "engine/core/cInifile.h"

#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Limits.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace tessel {

namespace {
// Keys of one file; a flood of orders to a full disk must not fill the memory too.
constexpr std::size_t kMostWaiting = 2000;
} // namespace

cInifile::Cached& cInifile::load(const QString& path) {
    const auto known = m_files.find(path);
    return m_reading > 0 && known != m_files.end() && known->second.reading == m_reading ? known->second
                                                                                         : loadAnew(path);
}

cInifile::Cached& cInifile::loadAnew(const QString& path) {
    // The bytes are read each time and only the parsing is spared: time stamps are too coarse to tell
    // apart two writes of the same length, and stations of one account may share a file.
    Cached& cached = m_files[path];
    cached.reading = m_reading;
    QByteArray bytes;
    const bool readable = readWholeFile(path, static_cast<qint64>(kMaxIniBytes), bytes);
    cached.exists = readable || QFileInfo::exists(path);
    cached.writable = (readable || !cached.exists) && !cached.forbidden;
    if (!cached.current || cached.bytes != bytes) {
        cached.bytes = bytes;
        cached.document = cIniDocument(bytes);
        for (const Change& change : cached.waiting) {
            apply(cached.document, change);
        }
        cached.current = true;
    }
    return cached;
}

void cInifile::apply(cIniDocument& document, const Change& change) {
    if (change.value) {
        document.setValue(change.section, change.key, *change.value);
    } else if (change.key.isEmpty()) {
        document.removeSection(change.section);
    } else {
        document.removeKey(change.section, change.key);
    }
}

// Puts the document into the place of the file, if it differs.
bool cInifile::replace(const QString& path, Cached& cached) {
    const QByteArray& wanted = cached.document.bytes();
    const bool same = wanted == cached.bytes && (cached.exists || wanted.isEmpty());
    if (!cached.writable || (!same && !replaceFile(path, wanted))) {
        return false;
    }
    cached.bytes = wanted;
    cached.waiting.clear();
    return true;
}

bool cInifile::store(const QString& path, const std::vector<Change>& changes) {
    Cached& cached = loadAnew(path);
    const cIniDocument before = cached.document;
    for (const Change& change : changes) {
        apply(cached.document, change);
    }
    if (static_cast<std::size_t>(cached.document.bytes().size()) > kMaxIniBytes) {
        cached.document = before;
        return false;
    }
    const bool stored = replace(path, cached);
    if (!stored) {
        for (const Change& change : changes) {
            std::erase_if(cached.waiting, [&](const Change& old) {
                return cIniDocument::sameName(old.section, change.section) &&
                       (change.key.isEmpty() || cIniDocument::sameName(old.key, change.key));
            });
            if (cached.waiting.size() < kMostWaiting) {
                cached.waiting.push_back(change);
            }
        }
    }
    if (written) {
        written(path, stored);
    }
    return stored;
}

void cInifile::tryAgain() {
    for (auto& [path, cached] : m_files) {
        if (!cached.waiting.empty()) {
            const bool stored = replace(path, loadAnew(path));
            if (written) {
                written(path, stored);
            }
        }
    }
}

void cInifile::forbid(const QString& path) {
    m_files[path].forbidden = true;
}

bool cInifile::finish(bool success, qsizetype code) {
    Success = success;
    LastReturnCode = static_cast<int>(code);
    return success;
}

QString cInifile::Value() {
    const auto value = load(Path).document.value(Section, Key);
    finish(value.has_value(), value.has_value() ? value->size() : Default.size());
    return value.value_or(Default);
}

bool cInifile::setValue(const QString& value) {
    return setValues({{Key, value}});
}

bool cInifile::setValues(const std::vector<cIniDocument::KeyValue>& values) {
    std::vector<Change> changes;
    changes.reserve(values.size());
    for (const auto& [key, value] : values) {
        changes.push_back({Section, key, value});
    }
    return setAll(changes);
}

bool cInifile::setAll(const std::vector<cIniDocument::Change>& changes) {
    std::vector<Change> usable;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(usable), [](const Change& change) {
        return !change.value || cIniDocument::usable(change.section, change.key);
    });
    const bool stored = store(Path, usable) && usable.size() == changes.size();
    return finish(stored, stored ? 1 : 0);
}

bool cInifile::DeleteKey() {
    const bool stored = store(Path, {{Section, Key, std::nullopt}});
    return finish(stored, stored ? 1 : 0);
}

bool cInifile::DeleteSection() {
    const bool stored = store(Path, {{Section, {}, std::nullopt}});
    return finish(stored, stored ? 1 : 0);
}

int cInifile::CLngDefault(const QString& text, int fallback) {
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    return ok ? number : fallback;
}

} // namespace tessel
