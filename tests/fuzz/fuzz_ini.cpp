// Any bytes as a file of settings: the program's own writes come back, and whatever else stands in the
// file stays.
#include "engine/core/cIniDocument.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Limits.h"

#include <QByteArrayList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

using namespace tessel;

namespace {

void require(bool holds, int line = __builtin_LINE()) {
    if (!holds) {
        std::fprintf(stderr, "line %d does not hold\n", line);
        std::abort();
    }
}

QString textFrom(FuzzedDataProvider& data, std::size_t longest) {
    return toText(QByteArray::fromStdString(data.ConsumeRandomLengthString(longest)));
}

QString expectedValue(QString value) {
    for (QChar& c : value) {
        if (c == u'\r' || c == u'\n' || c == QChar(0)) {
            c = u' ';
        }
    }
    return toText(toBytes(value.trimmed())).left(kMaxIniValue).trimmed();
}

// All keys but one, as a reader finds them.
std::vector<cIniDocument::KeyValue> others(const cIniDocument& document, const QString& section,
                                           const QString& key) {
    std::vector<cIniDocument::KeyValue> all;
    // What stands before the first heading belongs to the section without a name.
    QStringList names = document.sections();
    names.removeAll(QString());
    names.prepend(QString());
    for (const QString& name : names) {
        const bool here = name.trimmed().toCaseFolded() == section.trimmed().toCaseFolded();
        for (const auto& entry : document.entries(name)) {
            if (!here || entry.first.trimmed().toCaseFolded() != key.trimmed().toCaseFolded()) {
                all.push_back(entry);
            }
        }
    }
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const int edits = data.ConsumeIntegralInRange(1, 4);
    struct Edit {
        QString section, key, value;
        bool remove;
    };
    std::vector<Edit> wanted;
    for (int i = 0; i < edits; ++i) {
        Edit edit{textFrom(data, 12), textFrom(data, 12), textFrom(data, 40), data.ConsumeBool()};
        wanted.push_back(std::move(edit));
    }
    const std::string file = data.ConsumeRemainingBytesAsString();
    cIniDocument document(QByteArray::fromStdString(file));
    require(document.bytes() == QByteArray::fromStdString(file));

    for (const Edit& edit : wanted) {
        const QByteArray before = document.bytes();
        const auto kept = others(document, edit.section, edit.key);
        if (edit.remove) {
            document.removeKey(edit.section, edit.key);
            require(!document.value(edit.section, edit.key).has_value());
            require(document.bytes().size() <= before.size());
        } else if (document.setValue(edit.section, edit.key, edit.value)) {
            require(document.value(edit.section, edit.key) == expectedValue(edit.value));
            require(document.bytes().size() >= before.size() - 16384);
        } else {
            require(document.bytes() == before);
        }
        // Read anew, it is the same file, and no other key has come, gone or changed.
        const cIniDocument reread(document.bytes());
        require(reread.value(edit.section, edit.key) == document.value(edit.section, edit.key));
        require(reread.sections() == document.sections());
        require(others(reread, edit.section, edit.key) == kept);
    }
    return 0;
}
