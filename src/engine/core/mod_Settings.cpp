#include "engine/core/mod_Settings.h"

namespace tessel {

Settings::Settings(INIData& data) : m_data(data) {}

void Settings::LoadSettings(bool encodingRestricted) {
    m_encodingRestricted = encodingRestricted;
#define TESSEL_READ(type, section, member, key, fallback) section##_##member.read();
    TESSEL_SETTINGS(TESSEL_READ)
#undef TESSEL_READ
    Advanced_FilterColor.read();
    Advanced_FilterColorIdle.read();
}

} // namespace tessel
