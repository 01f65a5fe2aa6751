// The program's sounds by name.
#pragma once

#include <QString>
#include <QStringList>

namespace tessel {

class cInifile;
class Folders;
class Settings;
class Sounds;
struct OwnState;

class Tones {
public:
    Tones(const OwnState& own, const Settings& settings, const Folders& folders, cInifile& ini,
          Sounds& sounds)
        : m_own(own), m_settings(settings), m_folders(folders), m_ini(ini), m_sounds(sounds) {}

    // A fixed tone, say "DoorbellOne". Under do not disturb nothing sounds; a missing file is silent.
    void PlayTone(const QString& name);
    // A favorite tone by its stem, say "3A".
    void PlayFavoriteTone(const QString& name);
    void PlayBeep();
    // What keeps all tones from being heard; empty when nothing is known to.
    QString trouble() const;
    void PlaySentTone() { PlayTone(QStringLiteral("Sent")); }

    // Reads the names of the favorite tones; without notify.dat there are none.
    void LoadToneList();
    // Names of the favorite tones; tone n stands at n - 1.
    const QStringList& toneList() const { return m_names; }
    // What a list to choose a tone from shows: `firstEntry`, then the names.
    QStringList FillToneList(const QString& firstEntry) const { return QStringList(firstEntry) + m_names; }

private:
    void play(const QString& path);
    QString soundsFolder() const;
    QString favoritesFile(const QString& name) const;

    const OwnState& m_own;
    const Settings& m_settings;
    const Folders& m_folders;
    cInifile& m_ini;
    Sounds& m_sounds;
    QStringList m_names;
};

} // namespace tessel
