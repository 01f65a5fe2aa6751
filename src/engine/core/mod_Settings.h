// All settings of user.cfg that are loaded at the start. Each is a member named by its section and
// key, say `Settings_SNP`.
#pragma once

#include "engine/core/cSetting.h"

#include <QStringList>

#include <array>
#include <cstddef>

namespace tessel {

// X(type, section, member's key, key, default): one row a key, in the order of loading.
//
// `HLNAV`, `SBT`, `LSNAV`, `FRAME` and `LSTB` stand in the files of older stations. Nothing in this program
// follows them, and they stay there as they are.
#define TESSEL_SETTINGS(X)                                                                                   \
    X(std::int32_t, User, TAG, "TAG", "41")                                                                  \
    X(bool, User, FirstRun, "FirstRun", "1")                                                                 \
    X(QString, Note, ACTIVE, "ACTIVE", "")                                                                   \
    X(std::int32_t, NAV, 1, "1", "350")                                                                      \
    X(std::int32_t, MSGNAV, 1, "1", "103")                                                                   \
    X(bool, Settings, ONTOP, "ONTOP", "0")                                                                   \
    X(bool, Settings, SHOWUSER, "SHOWUSER", "1")                                                             \
    X(bool, Settings, SST, "SST", "1")                                                                       \
    X(std::int32_t, Settings, SORTEV, "SORTEV", "0")                                                         \
    X(std::int32_t, Settings, SORTSV, "SORTSV", "0")                                                         \
    X(std::int32_t, Settings, SORTFV, "SORTFV", "0")                                                         \
    X(bool, Settings, SNF, "SNF", "0")                                                                       \
    X(bool, Settings, SNP, "SNP", "1")                                                                       \
    X(bool, Settings, SNT, "SNT", "1")                                                                       \
    X(std::int32_t, Settings, SNPT, "SNPT", "45")                                                            \
    X(std::int32_t, Settings, SNPTP, "SNPTP", "255")                                                         \
    X(bool, Settings, SNPM, "SNPM", "1")                                                                     \
    X(bool, Settings, SNPMS, "SNPMS", "1")                                                                   \
    X(QString, Settings, SNPM0, "SNPM0", "")                                                                 \
    X(QString, Settings, SNPM1, "SNPM1", "")                                                                 \
    X(QString, Settings, SNPM2, "SNPM2", "")                                                                 \
    X(std::int32_t, Settings, STIMER, "STIMER", "1")                                                         \
    X(std::int32_t, Settings, ANPTM, "ANPTM", "1")                                                           \
    X(std::int32_t, Settings, ABPT, "ABPT", "5")                                                             \
    X(bool, Settings, DNP, "DNP", "1")                                                                       \
    X(bool, Settings, PNP, "PNP", "1")                                                                       \
    X(bool, Settings, UNP, "UNP", "1")                                                                       \
    X(bool, Settings, MPP, "MPP", "0")                                                                       \
    X(bool, Settings, MNP, "MNP", "1")                                                                       \
    X(bool, Settings, MNT, "MNT", "1")                                                                       \
    X(std::int32_t, Settings, MNPTM, "MNPTM", "1")                                                           \
    X(QString, Settings, MNPFS, "MNPFS", "10")                                                               \
    X(bool, Settings, MSOE, "MSOE", "0")                                                                     \
    X(bool, Settings, PV, "PV", "0")                                                                         \
    X(bool, Settings, OSPV, "OSPV", "1")                                                                     \
    X(bool, Settings, DBB, "DBB", "0")                                                                       \
    X(std::int32_t, Settings, DBBL, "DBBL", "75")                                                            \
    X(bool, Settings, DBNAV, "DBNAV", "0")                                                                   \
    X(bool, Settings, EOC, "EOC", "0")                                                                       \
    X(bool, Settings, APN, "APN", "0")                                                                       \
    X(bool, Settings, UPD, "UPD", "1")                                                                       \
    X(bool, Settings, TestMode, "TestMode", "0")                                                             \
    X(bool, Advanced, ENCODE, "ENCODE", "1")                                                                 \
    X(bool, Advanced, MultipleMonitors, "MultipleMonitors", "1")                                             \
    X(bool, Sound, ST, "ST", "1")                                                                            \
    X(bool, Sound, SC, "SC", "1")                                                                            \
    X(QString, Sound, BT, "BT", "850")                                                                       \
    X(QString, Sound, BD, "BD", "650")                                                                       \
    X(QString, Fonts, EVF, "EVF", "Tahoma")                                                                  \
    X(QString, Fonts, MVF, "MVF", "Tahoma")                                                                  \
    X(std::int32_t, Fonts, EVFS, "EVFS", "10")                                                               \
    X(std::int32_t, Fonts, MVFS, "MVFS", "10")                                                               \
    X(bool, Fonts, EVFB, "EVFB", "0")                                                                        \
    X(Argb, Messages, MSG_TS, "MSG_TS", "#414141")                                                           \
    X(Argb, Messages, MSG_B, "MSG_B", "#767676")                                                             \
    X(Argb, Messages, MSG_BACK, "MSG_BACK", "#e4ecf7")                                                       \
    X(std::int32_t, Messages, SAVE_CNT, "SAVE_CNT", "500")                                                   \
    X(bool, Messages, EV, "EV", "0")                                                                         \
    X(bool, Recents, DB, "DB", "1")                                                                          \
    X(bool, Recents, DBG, "DBG", "1")                                                                        \
    X(bool, Recents, PC, "PC", "1")                                                                          \
    X(bool, Recents, ST, "ST", "1")                                                                          \
    X(bool, Recents, STC, "STC", "1")                                                                        \
    X(bool, Recents, MSG, "MSG", "1")                                                                        \
    X(bool, Recents, LU, "LU", "1")                                                                          \
    X(bool, Recents, STAG, "STAG", "1")                                                                      \
    X(bool, Recents, STAGC, "STAGC", "1")                                                                    \
    X(bool, Recents, STF, "STF", "0")                                                                        \
    X(bool, Recents, LUC, "LUC", "0")                                                                        \
    X(bool, Recents, LUF, "LUF", "0")                                                                        \
    X(Argb, Recents, DB_B, "DB_B", "Green")                                                                  \
    X(Argb, Recents, DBG_B, "DBG_B", "Green")                                                                \
    X(Argb, Recents, PC_B, "PC_B", "Green")                                                                  \
    X(Argb, Recents, ST_B, "ST_B", "#767676")                                                                \
    X(Argb, Recents, STC_B, "STC_B", "#767676")                                                              \
    X(Argb, Recents, MSG_B, "MSG_B", "#767676")                                                              \
    X(Argb, Recents, LU_B, "LU_B", "#767676")                                                                \
    X(bool, Recents, SAVE, "SAVE", "1")                                                                      \
    X(std::int32_t, Recents, SAVE_CNT, "SAVE_CNT", "1200")                                                   \
    X(bool, Recents, EV, "EV", "0")                                                                          \
    X(bool, QuickMenu, AlertDoorBell, "AlertDoorBell", "1")                                                  \
    X(bool, QuickMenu, AlertPhone, "AlertPhone", "1")                                                        \
    X(bool, QuickMenu, AlertUrgent, "AlertUrgent", "1")                                                      \
    X(QString, QuickMenu, AlertGroupCommand, "AlertGroupCommand", "g:")                                      \
    X(QString, Metrics, PAL, "PAL", "Danville")                                                              \
    X(QString, Metrics, CHART, "CHART", "801")                                                               \
    X(QString, Metrics, NETS, "NETS", "0")                                                                   \
    X(QString, Metrics, NETR, "NETR", "0")                                                                   \
    X(QString, Metrics, NETLR, "NETLR", "")

namespace settings_table {

#define TESSEL_ROW(type, section, member, key, fallback) SettingKey{#section, key, fallback},
inline constexpr std::array kKeys{TESSEL_SETTINGS(TESSEL_ROW)};
#undef TESSEL_ROW

#define TESSEL_INDEX(type, section, member, key, fallback) section##_##member,
enum Index : std::size_t { TESSEL_SETTINGS(TESSEL_INDEX) };
#undef TESSEL_INDEX

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool sameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

constexpr bool hasDoubles() {
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        for (std::size_t j = i + 1; j < kKeys.size(); ++j) {
            if (sameName(kKeys[i].section, kKeys[j].section) && sameName(kKeys[i].key, kKeys[j].key)) {
                return true;
            }
        }
    }
    return false;
}
static_assert(!hasDoubles());

// One key serves both colours of the filter boxes: once it is present, both take its value.
inline constexpr SettingKey kFilterColorActive{"Advanced", "FilterColor", "&HC0FFFF"};
inline constexpr SettingKey kFilterColorIdle{"Advanced", "FilterColor", "&HE0E0E0"};

} // namespace settings_table

class Settings {
public:
    explicit Settings(INIData& data);

    // Reads every key. `encodingRestricted`: scrambling is off, whatever the key says.
    void LoadSettings(bool encodingRestricted);
    // "SECTION/KEY" of each value that meant nothing at the last load, say a word where a number belongs.
    const QStringList& unreadable() const { return m_unreadable; }

    // Whether packet bodies are scrambled.
    bool ENCODE() const { return Advanced_ENCODE() && !m_encodingRestricted; }

#define TESSEL_MEMBER(type, section, member, key, fallback)                                                  \
    Setting<type> section##_##member{m_data, settings_table::kKeys[settings_table::section##_##member]};

private:
    INIData& m_data;
    bool m_encodingRestricted = false;
    QStringList m_unreadable;

public:
    TESSEL_SETTINGS(TESSEL_MEMBER)
#undef TESSEL_MEMBER
    Setting<Argb> Advanced_FilterColor{m_data, settings_table::kFilterColorActive};
    Setting<Argb> Advanced_FilterColorIdle{m_data, settings_table::kFilterColorIdle};
};

} // namespace tessel
