// Settings as a user finds them on a fresh account, and as others have written them.
#include "support/LoneStation.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tessel;

namespace {
class SettingsFile : public LoneStation {
protected:
    Settings& load(bool encodingRestricted = false) {
        me->folders.SetupFolders([](const QString&) { return false; });
        me->settings.LoadSettings(encodingRestricted);
        return me->settings;
    }
};
} // namespace

TEST_F(SettingsFile, WhatStandsInTheFile) {
    user("settings", "snp", "0");
    user("Settings", "SHOWUSER", QString());
    user("Settings", "EOC", "-1");
    user("Settings", "SNPT", "soon");
    user("Settings", "SNPTP", "99999999999");
    user("Settings", "MNT", "loud");
    user("Settings", "DNP", "nan");
    user("user", "tag", "7");
    user("Messages", "SAVE_CNT", "all of them");
    user("Recents", "SAVE_CNT", "99999999999");
    user("Advanced", "filtercolor", "#102030");
    user("Messages", "MSG_BACK", "no such colour");
    Settings& settings = load();
    EXPECT_FALSE(settings.Settings_SNP());
    EXPECT_TRUE(settings.Settings_SHOWUSER()) << "an empty value counts as absent";
    EXPECT_TRUE(settings.Settings_EOC());
    EXPECT_EQ(settings.Settings_SNPT(), 0);
    EXPECT_EQ(settings.Settings_SNPTP(), 0);
    EXPECT_FALSE(settings.Settings_MNT());
    EXPECT_FALSE(settings.Settings_DNP());
    EXPECT_EQ(settings.User_TAG(), 7);
    EXPECT_EQ(settings.Messages_SAVE_CNT(), 500) << "or the inbox would be emptied";
    EXPECT_EQ(settings.Recents_SAVE_CNT(), 1200);
    EXPECT_EQ(settings.unreadable().join(u' ').toStdString(),
              "Settings/SNPT Settings/SNPTP Settings/DNP Settings/MNT Messages/MSG_BACK Messages/SAVE_CNT "
              "Recents/SAVE_CNT");
    EXPECT_EQ(settings.Advanced_FilterColor(), argb(0x10, 0x20, 0x30));
    EXPECT_EQ(settings.Advanced_FilterColorIdle(), argb(0x10, 0x20, 0x30));
    EXPECT_EQ(settings.Messages_MSG_BACK(), argb(0xe4, 0xec, 0xf7));

    EXPECT_TRUE(settings.Messages_MSG_BACK.set(argb(1, 2, 3)));
    EXPECT_TRUE(settings.Settings_SNPT.set(60));
    EXPECT_TRUE(settings.Settings_EOC.set(false));
    EXPECT_EQ(me.get(kUserFile, "Messages", "MSG_BACK"), "#010203");
    EXPECT_EQ(me.get(kUserFile, "Settings", "SNPT"), "60");
    EXPECT_EQ(me.get(kUserFile, "Settings", "EOC"), "0");
}

TEST(SettingValues, Colours) {
    const std::pair<const char*, Argb> forms[] = {
        {"&H0000FF", argb(255, 0, 0)}, {"&HC0FFFF&", argb(255, 255, 0xC0)},
        {"16711680", argb(0, 0, 255)}, {" blue ", argb(0, 0, 255)},
        {"#12345g", kNoColor},         {"reddish", kNoColor}};
    for (const auto& [text, color] : forms) {
        EXPECT_EQ(toColor(QLatin1String(text)), color) << text;
    }
}

TEST_F(SettingsFile, ScramblingCanBeForbiddenButNotForced) {
    EXPECT_FALSE(load().ENCODE());
    user("Advanced", "ENCODE", "1");
    EXPECT_TRUE(load().ENCODE());
    EXPECT_FALSE(load(true).ENCODE());

    // The whole way: the administrator's file, the start, the flag. Without the file nothing holds.
    admin("ENC", "r");
    world.start(0);
    EXPECT_FALSE(me->settings.ENCODE());
    EXPECT_EQ(me.get(kUserFile, "Advanced", "ENCODE"), "1");
}
