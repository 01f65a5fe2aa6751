// The own status: quick buttons with their latches and limiter, typed and shared statuses, do not
// disturb, and what others may set here.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class OwnStatus : public LoneStation {
protected:
    void SetUp() override {
        const char* const messages[] = {"Out", "Lunch", "Meeting", "Surgery", "Late", "x", "On call"};
        for (int index = 0; index < 7; ++index) {
            button("M", index, QLatin1String(messages[index]));
        }
        button("S", 3, "4");
        button("S", 4, "5");
        me.addTones();
        me.set(kSharedFile, "SharedStatus", "4", "Surgery:|:3");
        me.set(kSharedFile, "SharedStatus", "5", "Late:|:2");
        begin();
        // An entry that was active before.
        me->data.DeleteSetting(kSharedFile, "SharedStatus", "5");
        me->sharedStatus.LoadSharedStatus();
        sentCodes();
        me.desktop.calls.clear();
        me.sounds.played.clear();
    }

    void button(const char* key, int index, const QString& value) {
        me.set(kStatusFile, "status", QLatin1String(key) + QString::number(index), value);
    }
    QString stored(const char* key) { return me.get(kStatusFile, "status", QLatin1String(key)); }
    // Indices of the buttons that are shown pressed.
    std::vector<int> latched() {
        std::vector<int> indices;
        for (int index = 0; index < LocalStatus::kQuickCount; ++index) {
            if (me->status.latched(index)) {
                indices.push_back(index);
            }
        }
        return indices;
    }
    // Status and its time, as the last packet told them to the others.
    QString told() {
        const auto packet = cPacket::parse(world.network.sent.back(), false);
        return toText(packet->presenceValue(PresenceValue::Status)) + u'@' +
               toText(packet->presenceValue(PresenceValue::StatusTime));
    }
};

} // namespace

TEST_F(OwnStatus, SecondPressClearsAndALaterOneSetsAnew) {
    me->status.SetStatus(0);
    EXPECT_EQ(told(), "Out@9:00:06 AM");
    EXPECT_EQ(me->status.messageBar(), "Out");
    EXPECT_THAT(latched(), ElementsAre(0));
    world.clock.advance(1999);
    me->status.SetStatus(0);
    EXPECT_EQ(told(), "@") << "the second press within two seconds turns it off";
    EXPECT_EQ(me->status.messageBar(), "");
    EXPECT_THAT(latched(), IsEmpty());

    world.run(3);
    me->status.SetStatus(0);
    world.run(3);
    me->status.SetStatus(0);
    EXPECT_EQ(told(), "Out@9:00:13 AM") << "a late second press sets the status with a new time";
    EXPECT_THAT(latched(), ElementsAre(0));
    EXPECT_EQ(sentCodes(), QStringList({"XAS", "XAS", "XAS", "XAS"}));
    EXPECT_EQ(item(*viewRow(kMe), LocationItem::Status).text, "Out");
}

TEST_F(OwnStatus, TypedTextThatAButtonSetsLatchesIt) {
    me->status.SetCustomStatus("Meeting");
    EXPECT_THAT(latched(), ElementsAre(2));
    me->status.SetCustomStatus("On call");
    EXPECT_THAT(latched(), ElementsAre(2)) << "only the first three are looked at, and latches stay";
    EXPECT_TRUE(me->status.choose("  Lunch ", -1));
    EXPECT_THAT(latched(), ElementsAre(1)) << "the window clears them first";
    EXPECT_EQ(told(), "Lunch@9:00:06 AM");
    EXPECT_FALSE(me->status.choose("  L ", 4));
    me->status.SetCustomStatus("L");
    EXPECT_EQ(me->own.status, "Lunch");
    EXPECT_THAT(latched(), ElementsAre(1));
    EXPECT_TRUE(me->status.choose(QString(40, u'w'), -1));
    EXPECT_EQ(me->own.status, QString(25, u'w'));
    EXPECT_TRUE(me->status.choose("Surgery", 4));
    EXPECT_EQ(me->own.statusTone, "3");
}

TEST_F(OwnStatus, SharedButtons) {
    EXPECT_EQ(me->status.pressed(0), LocalStatus::Press::Sets);
    EXPECT_EQ(me->status.pressed(3), LocalStatus::Press::Sets);
    EXPECT_EQ(me->status.pressed(4), LocalStatus::Press::AsksToEdit);
    me->status.SetStatus(4);
    EXPECT_EQ(me->own.status, "") << "nobody has it in the list any more";
    world.run(3);
    me->status.SetStatus(3);
    EXPECT_EQ(me->own.status + me->own.statusTone, "Surgery3");
    world.run(3);
    button("S", 0, "5");
    button("S", 6, "25");
    me->status.LoadStatusSettings();
    me->status.SetStatus(0);
    EXPECT_EQ(me->own.status, "Late") << "the first three do not look whether it is active";
    world.run(3);
    me->status.SetStatus(6);
    EXPECT_EQ(me->own.status, "Late");
    EXPECT_EQ(me->status.pressed(6), LocalStatus::Press::AsksToEdit);
}

TEST_F(OwnStatus, AKeyPressedWhileOfflineIsTold) {
    me->network.RestartNetwork();
    ASSERT_FALSE(me->own.canSend());
    me->shortKeys.Process_ShortKeys(112);
    EXPECT_EQ(me->own.status, "");
    EXPECT_EQ(me->footer.text(), "  Not sent: offline");
}

TEST_F(OwnStatus, SharedStatusFromAfarIsNoticedHere) {
    hear("XAS2", body({kMe, "Late", "4"}));
    hear("XAS2", body({kMe, {}, "7"}));
    hear("XAS2", body({kOther, "Surgery", "4"}));
    EXPECT_EQ(me->own.status, "") << "two offices with different lists";
    EXPECT_FALSE(me.desktop.popups[0]) << "and nothing to tell of";
    hear("XAS2", body({kMe, "Surgery", "4"}));
    EXPECT_EQ(told(), "Surgery@9:00:06 AM");
    ASSERT_TRUE(me.desktop.popups[0]);
    EXPECT_EQ(me.desktop.popups[0]->caption, kProductName);
    EXPECT_EQ(me.desktop.popups[0]->text, "Surgery");
    EXPECT_EQ(me.sounds.played, QStringList("3A.wav"));

    me->popups.close(PopupId::ctrlPopupStatus);
    me->own.doNotDisturb = true;
    hear("XAS2", body({kMe, "Late", "5"}));
    me->own.doNotDisturb = false;
    me->settings.Settings_SNP.set(false);
    me->settings.Settings_SNT.set(false);
    hear("XAS2", body({kMe, "Surgery", "4"}));
    hear("XAS2", body({kMe, "Custom", {}}));
    EXPECT_EQ(me->own.status, "Custom");
    EXPECT_FALSE(me.desktop.popups[0]);
    EXPECT_EQ(me.sounds.played.size(), 1);
}

TEST_F(OwnStatus, ButtonsWrittenFromAfar) {
    std::vector<int> hotKeys;
    QObject::connect(&me->status, &LocalStatus::hotKeyChanged, [&](int index) { hotKeys.push_back(index); });
    const auto record = [](const QString& slot, const QString& name, const QString& message) {
        return body({kMe, QStringList{slot, name, message, "7"}.join(ListMark)});
    };
    hear("ZA05", record("1", "Brk", "Break"));
    EXPECT_EQ(stored("N1") + stored("M1") + stored("H1"), "BrkBreak7");
    EXPECT_EQ(me->status.quick(1).Message, "Break");
    me->status.SetStatus(1);
    EXPECT_EQ(me->own.status, "Break");
    hear("ZA05", record("8", "End", "At the end"));
    EXPECT_EQ(me->status.quick(8).Name, "End");
    hear("ZA06", body({kMe, "1"}));
    EXPECT_EQ(stored("N1") + stored("M1") + stored("H1"), "");
    EXPECT_EQ(me->status.quick(1).Message, "");
    EXPECT_EQ(me->status.quick(1).HotKey, "0");
    hear("ZA06", body({kMe, "3"}));
    EXPECT_EQ(stored("S3"), "4") << "three keys, and no more";
    EXPECT_THAT(hotKeys, ElementsAre(1, 1)) << "buttons past the third have none";

    const QByteArray before = me.fileBytes(kStatusFile);
    for (const char* const slot : {"9", "-1", "", "M", "0]\n[x", "1.5", "99999"}) {
        hear("ZA05", record(QLatin1String(slot), "Name", "Message"));
        hear("ZA06", body({kMe, QLatin1String(slot)}));
    }
    hear("ZA05", body({kOther, "0:|:Name:|:Message:|:7"}));
    hear({.SID = kMe, .code = "ZA06", .body = body({kMe, "0"})});
    EXPECT_EQ(me.fileBytes(kStatusFile), before);

    hear("ZA05", record("0", "Long", QString(8000, u'w')));
    world.run(3);
    me->status.SetStatus(0);
    EXPECT_LT(world.network.sent.back().size(), 1000) << "it travels in every packet from now on";
}

TEST_F(OwnStatus, DoNotDisturbIsToldToTheUserOnceAndToTheOthersAlways) {
    me->status.SetDND();
    EXPECT_TRUE(me->own.doNotDisturb);
    EXPECT_EQ(me.desktop.calls,
              QStringList("Set_TrayPopup Tessel Status|Do Not Disturb has been activated\r\n"
                          "All incoming sounds and popups have been muted"));
    world.run(1);
    EXPECT_EQ(item(*viewRow(kMe), LocationItem::Active).foreColor, kBlue);
    me->status.SetDND();
    EXPECT_FALSE(me->own.doNotDisturb);
    EXPECT_EQ(me.desktop.calls.size(), 1);
    EXPECT_EQ(sentCodes(), QStringList({"XALU", "XALU"}));
}
