#include "engine/operations/mod_Admin.h"

#include "engine/core/cInifile.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"

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

// Characters of a value of user.cfg, as they can be typed.
int limitOf(const QString& section, const QString& key) {
    const auto is = [&](const char* wantedSection, const char* wantedKey) {
        return section.trimmed().compare(QLatin1String(wantedSection), Qt::CaseInsensitive) == 0 &&
               key.trimmed().compare(QLatin1String(wantedKey), Qt::CaseInsensitive) == 0;
    };
    if (is("Note", "ACTIVE")) {
        return kLongestNote;
    }
    return is("User", "LOCATION") ? kLongestLocation : kMaxIniValue;
}

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

void Admin::SetAdminKey(INIData& data, const QString& text) {
    data.WriteSetting(kAdminFile, kSection, text.section(ListMark, 0, 0), text.section(ListMark, 1, 1));
}

void Admin::SetUserSettingRemote(INIData& data, const QString& text) {
    const QString section = text.section(ListMark, 0, 0);
    const QString key = text.section(ListMark, 1, 1);
    data.WriteSetting(kUserFile, section, key, text.section(ListMark, 2, 2).left(limitOf(section, key)));
}

} // namespace tessel
