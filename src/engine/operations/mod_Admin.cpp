#include "engine/operations/mod_Admin.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"

namespace tessel {

namespace {

const QString kSection = QStringLiteral("Admin");

struct LetterKey {
    const char* key;
    QString Restrictions::*letter;
};

constexpr LetterKey kBeforeKA[] = {{"NetworkSettings", &Admin::NetworkSettings},
                                   {"AdvancedSettings", &Admin::AdvancedSettings}};
constexpr LetterKey kAfterKA[] = {
    {"UserChange", &Admin::UserChange}, {"Updates", &Admin::Updates}, {"HotKeys", &Admin::HotKeys},
    {"UserName", &Admin::UserName},     {"Support", &Admin::Support}, {"SSAdmin", &Admin::SSAdmin},
    {"SSHide", &Admin::SSHide},         {"WTS", &Admin::WTS},         {"ENC", &Admin::ENC}};

} // namespace

void Admin::LoadAdminSettings(cInifile& ini, const QString& programFolder, const QString& dataFolder) {
    const QString beside = programFolder + kAdminFile;
    const QString ownCopy = dataFolder + kAdminFile;
    if (!FileExists(beside) && !FileExists(ownCopy)) {
        return;
    }
    AdminFilePresent = true;
    ini.Path = FileExists(beside) ? beside : ownCopy;
    ini.Section = kSection;
    const auto read = [&ini](const char* key, const char* whenMissing) {
        ini.Key = QLatin1String(key);
        ini.Default.clear();
        const QString value = ini.Value();
        return value.isEmpty() ? QString::fromLatin1(whenMissing) : value.toUpper();
    };
    for (const auto& [key, letter] : kBeforeKA) {
        this->*letter = read(key, "A");
    }
    const QString keep = read("KA", "1");
    KA = keep == u"TRUE" || cInifile::CLngDefault(keep, 0) != 0;
    for (const auto& [key, letter] : kAfterKA) {
        this->*letter = read(key, "A");
    }
}

QString Admin::GetAdminFlags() const {
    QString flags;
    for (const auto& row : kBeforeKA) {
        flags += this->*row.letter;
    }
    flags += KA ? QLatin1String("True") : QLatin1String("False");
    for (const auto& row : kAfterKA) {
        flags += this->*row.letter;
    }
    return flags;
}

void Admin::SetAdminKey(cInifile& ini, const QString& dataFolder, const QString& text) {
    ini.Path = dataFolder + kAdminFile;
    ini.Section = kSection;
    ini.Key = text.section(ListMark, 0, 0);
    ini.setValue(text.section(ListMark, 1, 1));
}

} // namespace tessel
