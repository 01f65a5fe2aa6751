#include "engine/alerts/mod_Tones.h"

#include "engine/core/cInifile.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_Settings.h"
#include "engine/ports/cSounds.h"

#include <algorithm>

namespace tessel {

namespace {

constexpr int kTonesWithoutCount = 5;
constexpr int kMostTones = 200;
constexpr int kLowestHertz = 37;
constexpr int kHighestHertz = 20000;
constexpr int kLongestBeepMs = 10000;

// A name comes from the network: it is one file of the folder, never a way out of it.
bool isFileName(const QString& name) {
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(u'\\') && !name.contains(QChar(0));
}

} // namespace

QString Tones::soundsFolder() const {
    return m_folders.program() + QLatin1String("Sounds/");
}

QString Tones::favoritesFile(const QString& name) const {
    // Both spellings of the folder are in use.
    const QString path = soundsFolder() + QLatin1String("favorites/") + name;
    return FileExists(path) ? path : soundsFolder() + QLatin1String("Favorites/") + name;
}

void Tones::play(const QString& path) {
    if (m_own.doNotDisturb) {
        return;
    }
    if (!m_settings.Sound_SC()) {
        PlayBeep();
    } else if (FileExists(path)) {
        m_sounds.play(path);
    }
}

void Tones::PlayTone(const QString& name) {
    if (isFileName(name)) {
        play(soundsFolder() + name + QLatin1String(".wav"));
    }
}

void Tones::PlayFavoriteTone(const QString& name) {
    if (isFileName(name)) {
        play(favoritesFile(name + QLatin1String(".wav")));
    }
}

QString Tones::trouble() const {
    return m_sounds.trouble();
}

void Tones::PlayBeep() {
    if (!m_own.doNotDisturb) {
        m_sounds.beep(std::clamp(toNumber(m_settings.Sound_BT()), kLowestHertz, kHighestHertz),
                      std::clamp(toNumber(m_settings.Sound_BD()), 0, kLongestBeepMs));
    }
}

void Tones::LoadToneList() {
    const QString path = favoritesFile(QStringLiteral("notify.dat"));
    if (!FileExists(path)) {
        return;
    }
    m_ini.Path = path;
    m_ini.Default.clear();
    m_ini.Section = QStringLiteral("Load");
    m_ini.Key = QStringLiteral("A");
    const QString count = m_ini.Value();
    const int names = count.isEmpty() ? kTonesWithoutCount : std::clamp(toNumber(count), 0, kMostTones);
    m_names.clear();
    m_ini.Section = QStringLiteral("Alerts");
    for (int number = 1; number <= names; ++number) {
        m_ini.Key = QString::number(number);
        m_names += m_ini.Value();
    }
}

} // namespace tessel
