// Which sound is made for which name, and when there is none.
#include "engine/alerts/mod_Tones.h"
#include "engine/core/mod_FileTools.h"
#include "engine/ports/cSounds.h"
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PathSounds : public Sounds {
public:
    QStringList heard;

    void play(const QString& path) override { heard += path; }
    void beep(int hertz, int ms) override { heard += QStringLiteral("beep %1 %2").arg(hertz).arg(ms); }
};

class TonesTest : public LoneStation {
protected:
    void SetUp() override {
        me->folders.SetupFolders([](const QString&) { return false; });
        MakeFolder(folder + "Favorites/");
    }

    void setting(const char* key, const QString& value) {
        user("Sound", key, value);
        me->settings.LoadSettings(false);
    }
    void file(const QString& name, const QByteArray& bytes = "RIFF") {
        ASSERT_TRUE(replaceFile(folder + name, bytes));
    }
    // What was heard since the last call, without the folder of the sounds.
    QStringList heard() {
        QStringList names = std::exchange(sounds.heard, {});
        return names.replaceInStrings(folder, QString());
    }

    const QString folder = me.facts.programFolder + QStringLiteral("Sounds/");
    PathSounds sounds;
    Tones tones{me->own, me->settings, me->folders, me->ini, sounds};
};

} // namespace

TEST_F(TonesTest, FileOfTheNameOrSilence) {
    setting("SC", "1");
    file("DoorbellOne.wav");
    file("Sent.wav");
    file("Favorites/3A.wav");
    tones.PlayTone("DoorbellOne");
    tones.PlaySentTone();
    tones.PlayFavoriteTone("3A");
    EXPECT_THAT(heard(), ElementsAre("DoorbellOne.wav", "Sent.wav", "Favorites/3A.wav"));

    // Nothing stands in for a file that is missing, and a folder of its name is none.
    MakeFolder(folder + "Status.wav");
    for (const char* name : {"Urgent", "3A", "", "Status"}) {
        tones.PlayTone(name);
    }
    for (const char* name : {"4A", "DoorbellOne", ""}) {
        tones.PlayFavoriteTone(name);
    }
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(TonesTest, WithoutSoundCardEveryToneIsTheBeep) {
    setting("SC", "0");
    setting("BT", "440");
    setting("BD", "200");
    tones.PlayTone("Urgent"); // there is no file either
    tones.PlayFavoriteTone("9A");
    tones.PlaySentTone();
    EXPECT_THAT(heard(), ElementsAre("beep 440 200", "beep 440 200", "beep 440 200"));

    // What somebody wrote into the file must neither hurt an ear nor sound for an hour.
    setting("BT", "99999999999");
    setting("BD", "3600000");
    tones.PlayBeep();
    setting("BT", "-3");
    setting("BD", "often");
    tones.PlayBeep();
    const QStringList beeps = heard();
    ASSERT_EQ(beeps.size(), 2);
    for (const QString& beep : beeps) {
        const int hertz = beep.section(u' ', 1, 1).toInt();
        EXPECT_TRUE(hertz >= 37 && hertz <= 20000) << beep.toStdString();
        EXPECT_LE(beep.section(u' ', 2).toInt(), 10000);
        EXPECT_GE(beep.section(u' ', 2).toInt(), 0);
    }
}

TEST_F(TonesTest, NamesFromTheNetworkStayInTheFolder) {
    setting("SC", "1");
    file("../secret.wav");
    file("../x.wav");
    file("Favorites/1A.wav");
    file("back\\slash.wav");
    const QString absolute = me.facts.programFolder + "secret";
    for (const QString& name :
         {QStringLiteral("../secret"), QStringLiteral("../../program/secret"), absolute,
          QStringLiteral("Favorites/1A"), QStringLiteral("back\\slash"), QStringLiteral(".."), QString(u'/'),
          QString(QChar(0)), QStringLiteral("../x.wav") + QChar(0), QString(100000, u'A')}) {
        tones.PlayTone(name);
        tones.PlayFavoriteTone(name);
        tones.PlayFavoriteTone(QStringLiteral("../") + name);
    }
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(TonesTest, ListOfFavoriteTones) {
    tones.LoadToneList();
    EXPECT_THAT(tones.FillToneList("No Tone"), ElementsAre("No Tone")) << "no file, no names";

    file("Favorites/notify.dat", "[Load]\nA=3\n[Alerts]\n1=Chime\n3=Harp\n4=Beyond the count\n");
    tones.LoadToneList();
    EXPECT_THAT(tones.FillToneList("No Tone"), ElementsAre("No Tone", "Chime", "", "Harp"))
        << "a name stands at its number, also behind a gap";

    file("Favorites/notify.dat", "[Load]\nA=2000000000\n[Alerts]\n1=Chime\n");
    tones.LoadToneList();
    EXPECT_EQ(tones.toneList().value(0), "Chime");
    EXPECT_LE(tones.toneList().size(), 1000) << "a list that a menu can show";
    for (const char* count : {"-5", "many", "0"}) {
        file("Favorites/notify.dat", QByteArray("[Load]\nA=") + count + "\n[Alerts]\n1=Chime\n");
        tones.LoadToneList();
        EXPECT_THAT(tones.toneList(), IsEmpty()) << count;
    }
}
