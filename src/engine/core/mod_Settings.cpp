#include "engine/core/mod_Settings.h"

namespace tessel {

Settings::Settings(INIData& data) : m_data(data) {}

void Settings::LoadSettings(bool encodingRestricted) {
    m_encodingRestricted = encodingRestricted;
    m_unreadable.clear();
#define TESSEL_READ(type, section, member, key, fallback)                                                    \
    if (!section##_##member.read()) {                                                                        \
        m_unreadable += QStringLiteral(#section "/" key);                                                    \
    }
    TESSEL_SETTINGS(TESSEL_READ)
#undef TESSEL_READ
    Advanced_FilterColorIdle.read();
    if (!Advanced_FilterColor.read()) {
        m_unreadable += QStringLiteral("Advanced/FilterColor");
    }
    // None at all would be kept of what the user has received.
    for (auto* const kept : {&Messages_SAVE_CNT, &Recents_SAVE_CNT}) {
        if (!kept->read()) {
            kept->holdDefault();
        }
    }
}

} // namespace tessel
