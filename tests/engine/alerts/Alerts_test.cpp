// Doorbells, phone calls and urgent alerts: what each switch takes away, and what always remains.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Kind {
    const char* code;
    bool targeted;
    const char* caption;
    PopupTheme theme;
    const char* label;
    int icon;
    const char* tone;
    const char* barTitle;
    int barIcon;
    const char* historyCode;
    const char* historyWord;
    const char* historyName;
    Setting<bool> Settings::*popup;
    Setting<bool> Settings::*history;
};

const Kind kKinds[] = {
    {"XAD1", true, "Tessel DoorBell", PopupTheme::Blue, "DoorBell", 12, "DoorbellOne.wav", "DoorBell:", 32901,
     "0", "DoorBell", "Outside", &Settings::Settings_DNP, &Settings::Recents_DB},
    {"XAD0", false, "Tessel DoorBell", PopupTheme::Blue, "DoorBell Everyone", 12, "DoorbellAll.wav",
     "DoorBell Everyone:", 32901, "10", "DoorBell Everyone", "Outside", &Settings::Settings_DNP,
     &Settings::Recents_DBG},
    {"XAP", true, "Tessel Phone Call", PopupTheme::Blue, "Phone Call", 19, "Phone.wav", "Phone Call:", 32902,
     "1", "PhoneCall", "", &Settings::Settings_PNP, &Settings::Recents_PC},
    {"XAUM", true, "Tessel Urgent", PopupTheme::Urgent, "Outside", 0, "Urgent.wav", "Urgent:", 32903, "5",
     "Urgent (Outside)", "", &Settings::Settings_UNP, &Settings::Recents_PC},
};

class Alerts : public LoneStation {
protected:
    void SetUp() override {
        me.addTones();
        begin();
        forget();
    }
    void forget() {
        me.desktop.calls.clear();
        me.sounds.played.clear();
        sentCodes();
    }
    void ring(const Kind& kind, const QString& text = "come") {
        hear(kind.code, kind.targeted ? body({kMe, text}) : text);
    }
    std::optional<PopupContent>& popup() { return me.desktop.popups[1]; }
    int entries() { return me->history.rptNotifications.count(); }
    QStringList newest(int row = 0) {
        return item(*me->history.rptNotifications.at(row), CardItem::Record).text.split(ValueMark);
    }
};

} // namespace

TEST_F(Alerts, EachKindShowsSoundsAndIsKept) {
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.code);
        forget();
        ring(kind, " come & see ");
        ASSERT_TRUE(popup());
        EXPECT_EQ(popup()->caption, kind.caption);
        EXPECT_EQ(popup()->theme, kind.theme);
        EXPECT_EQ(popup()->label, kind.label);
        EXPECT_EQ(popup()->icon, kind.icon);
        EXPECT_EQ(popup()->time, "9:00:06 AM");
        EXPECT_EQ(popup()->text, kind.targeted ? "come and see" : " come and see ");
        EXPECT_EQ(me.sounds.played, QStringList(kind.tone));
        const AlertBar::Content& bar = me->alertBar.content();
        EXPECT_TRUE(me->alertBar.AlertBarShown());
        EXPECT_EQ(bar.title, kind.barTitle);
        EXPECT_EQ(bar.iconId, kind.barIcon);
        EXPECT_EQ(bar.text.trimmed(), "come & see");
        EXPECT_EQ(bar.name, "Outside");
        EXPECT_EQ(bar.time, "9:00:06 AM");
        QStringList record = newest();
        record[4] = record[4].trimmed();
        EXPECT_EQ(record, QStringList({"0", kind.historyCode, kind.historyWord, kind.historyName,
                                       "come & see", "9:00:06 AM", "3/2/2026", kOther}));
    }
    EXPECT_THAT(me.desktop.calls.filter("shakeMain"), IsEmpty()) << "only where it is switched on";
    EXPECT_THAT(sentCodes(), IsEmpty()) << "an alert is never answered";
}

TEST_F(Alerts, SwitchesTakeAwayOneThingEach) {
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.code);
        popup().reset();
        forget();
        (me->settings.*kind.popup).set(false);
        ring(kind);
        EXPECT_FALSE(popup());
        EXPECT_EQ(me.sounds.played.size(), 1);
        (me->settings.*kind.popup).set(true);

        const int before = entries();
        (me->settings.*kind.history).set(false);
        ring(kind);
        EXPECT_EQ(entries(), before);
        EXPECT_TRUE(popup());
        (me->settings.*kind.history).set(true);

        popup().reset();
        forget();
        me->alertBar.TurnOff_AlertBar();
        me->own.doNotDisturb = true;
        me->settings.Settings_DBB.set(true);
        ring(kind);
        world.run(1);
        EXPECT_FALSE(popup());
        EXPECT_THAT(me.sounds.played, IsEmpty());
        EXPECT_TRUE(me->alertBar.AlertBarShown()) << "the one trace that nothing mutes";
        EXPECT_EQ(entries(), before + 1);
        EXPECT_EQ(me.desktop.calls.filter("shakeMain").size(), 77) << "76 shakes, and back";
        me->own.doNotDisturb = false;
        me->settings.Settings_DBB.set(false);
    }
    me->settings.Recents_PC.set(false);
    const int before = entries();
    ring(kKinds[2]);
    ring(kKinds[3]);
    EXPECT_EQ(entries(), before) << "phone calls and urgent alerts share a switch";
}

TEST_F(Alerts, BarStaysForItsMinutesFromTheLatestAlert) {
    ring(kKinds[0], "first");
    world.run(4 * 60);
    ring(kKinds[3], "second");
    EXPECT_EQ(me->alertBar.content().text, "second");
    world.run(4 * 60 + 59);
    EXPECT_TRUE(me->alertBar.AlertBarShown());
    world.run(1);
    EXPECT_FALSE(me->alertBar.AlertBarShown());
    world.run(600);
    EXPECT_FALSE(me->alertBar.AlertBarShown());

    me->settings.Settings_ABPT.set(1);
    ring(kKinds[1]);
    me->popups.clicked(PopupId::ctrlPopupAlert, PopupItem::TurnOff);
    EXPECT_FALSE(me->alertBar.AlertBarShown()) << "the popup's button turns off the bar";
    EXPECT_FALSE(popup());
    ring(kKinds[1]);
    world.run(60);
    EXPECT_FALSE(me->alertBar.AlertBarShown());
}

TEST_F(Alerts, ShakeMovesTheWindowAndPutsItBack) {
    me->settings.Settings_DBB.set(true);
    me->settings.Settings_DBBL.set(20);
    ring(kKinds[0]);
    world.clock.advance(100);
    EXPECT_GT(me.desktop.windows.shaken, 0);
    ring(kKinds[1]); // within the shake
    world.clock.advance(2000);
    EXPECT_EQ(me.desktop.windows.shakenTo, QPoint());
    EXPECT_EQ(me.desktop.calls.filter("shakeMain").size(), 10 + 21 + 1);

    forget();
    me.desktop.windows.minimised = true;
    ring(kKinds[0]);
    world.clock.advance(2000);
    EXPECT_LE(me.desktop.calls.filter("shakeMain").size(), 2);
    me.desktop.windows.minimised = false;
    me->settings.Settings_DBBL.set(2000000000);
    ring(kKinds[0]);
    world.run(30);
    EXPECT_EQ(me.desktop.windows.shakenTo, QPoint());
    EXPECT_FALSE(me->alerts.tmrShake.enabled());
}

TEST_F(Alerts, QuickAlertsGoToOneOrToAGroup) {
    const AlertTarget target{kOther, 34};
    sent();
    me->alerts.SendQuickAlert(QuickAlert::DoorBell, target, QString(40, u'w'));
    me->alerts.SendQuickAlert(QuickAlert::PhoneCall, target, {});
    me->alerts.SendQuickAlert(QuickAlert::Urgent, target, "g: now");
    me->alerts.SendQuickAlert(QuickAlert::DoorBell, target, "G:" + QString(40, u'w'));
    me->alerts.SendQuickAlert(QuickAlert::PhoneCall, target, "to g: x");
    EXPECT_EQ(sent(),
              QStringList({"XAD1 " + kOther + u'/' + QString(30, u'w'), "XAP " + kOther + u'/',
                           "XAUMT 34/ now", "XAD1T 34/" + QString(30, u'w'), "XAP " + kOther + "/to g: x"}));
    EXPECT_EQ(me.sounds.played.count("Sent.wav"), 5);
    me->alerts.SendQuickAlert(static_cast<QuickAlert>(403), target, "text");
    me->alerts.SendQuickAlert(static_cast<QuickAlert>(0), target, "text");
    EXPECT_EQ(me.sounds.played.size(), 5);
    me->alerts.SendQuickAlert(QuickAlert::Urgent, {}, "g:text");
    me->alerts.SendQuickAlert(QuickAlert::Urgent, {}, "text");
    EXPECT_THAT(sent(), IsEmpty()) << "without a target nothing goes out";
    EXPECT_EQ(me.sounds.played.size(), 7) << "though it sounds like it";

    QStringList composed;
    QObject::connect(
        &me->alerts, &AlertEngine::quickMessage, [&](const AlertTarget& to, const QString& text, bool group) {
            composed += to.SID + u'/' + QString::number(text.size()) + u'/' + QString::number(group);
        });
    me->alerts.SendQuickAlert(QuickAlert::Message, target, "g:" + QString(6000, u'm'));
    me->alerts.SendQuickAlert(QuickAlert::Message, target, "hello");
    EXPECT_EQ(composed, QStringList({kOther + "/5100/1", kOther + "/5/0"}));
    sent(); // what becomes of them is not asked here
    for (const char* const prefix : {"all>", ""}) {
        me->settings.QuickMenu_AlertGroupCommand.set(prefix);
        me->alerts.SendQuickAlert(QuickAlert::DoorBell, target, "ALL>x");
    }
    EXPECT_EQ(sent(), QStringList({"XAD1T 34/x", "XAD1 " + kOther + "/ALL>x"}));
}

TEST_F(Alerts, DoorBellWindowRingsEveryoneOrAGroup) {
    sent();
    me->alerts.SendDoorBell("G:" + QString(40, u'w'));
    EXPECT_EQ(sent(), QStringList("XAD0 " + QString(25, u'w')));
    EXPECT_THAT(me.desktop.calls, ElementsAre("Set_TrayPopup Tessel Status|Doorbell Sent"));
    EXPECT_THAT(me.sounds.played, ElementsAre("Sent.wav"));
    forget();
    QString members;
    for (int i = 0; i < 12; ++i) {
        members += QStringLiteral("Room %1: X-ray:SID%1").arg(i) + ListMark;
    }
    me->alerts.SendDoorBell_Group(members + "broken" + ListMark + "empty:" + ListMark, "g:tea");
    const QStringList rung = sent();
    ASSERT_EQ(rung.size(), 12);
    EXPECT_EQ(rung.last(), "XAD1 SID11/tea");
    EXPECT_THAT(me.sounds.played, ElementsAre("Sent.wav"));
    me->own.online = false;
    forget();
    me->alerts.SendDoorBell("text");
    me->alerts.SendDoorBell_Group(members, "text");
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_THAT(me.desktop.calls, IsEmpty()) << "nothing was sent, and nothing says so";
}
