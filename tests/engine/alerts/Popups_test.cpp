// The three popups: how long each stays, what it says, where it stands, and what a click does.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PopupTest : public LoneStation {
protected:
    void SetUp() override {
        begin();
        me.desktop.calls.clear();
    }
    void status(const QString& text = "Out") {
        me->popups.ShowNotifyPopup(
            {PopupTheme::Blue, "Room", text, "9:00:00 AM", kOther, "Caption", NoticeKind::Status, "Room"});
    }
    void alert(NoticeKind kind = NoticeKind::DoorBell, const QString& text = "come") {
        me->popups.ShowNotifyPopupAlert(
            {PopupTheme::Blue, "DoorBell", text, "9:00:00 AM", kOther, "Caption", kind, "Room"});
    }
    void message(const QString& body = "hello", const QString& id = "A11") {
        me->popups.ShowMessagePopup("Room & Co", body, "9:00:00 AM", id);
    }
    std::optional<PopupContent>& popup(PopupId id) { return me.desktop.popups[static_cast<std::size_t>(id)]; }
    // Whether a popup goes exactly `seconds` after now.
    bool goesAfter(PopupId id, int seconds) {
        world.clock.advance(seconds * 1000LL - 1);
        const bool still = popup(id).has_value() && me->popups.isUp(id);
        world.clock.advance(1);
        return still && !popup(id) && !me->popups.isUp(id);
    }
    QString place(int number) { return me.get(kUserFile, "Settings", QStringLiteral("SNPM%1").arg(number)); }
};

} // namespace

TEST_F(PopupTest, EachStaysItsTime) {
    status();
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupStatus, 45));
    alert();
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupAlert, 60));
    message();
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupMessage, 60));
    me->settings.Settings_SNPT.set(7);
    me->settings.Settings_ANPTM.set(3);
    me->settings.Settings_MNPTM.set(2);
    status();
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupStatus, 7));
    for (const NoticeKind kind : {NoticeKind::DoorBell, NoticeKind::PhoneCall, NoticeKind::Urgent}) {
        alert(kind);
        EXPECT_TRUE(goesAfter(PopupId::ctrlPopupAlert, 180));
    }
    message();
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupMessage, 120));
    // Whatever stands in the file, the popup comes, and an alert is not lost.
    for (const int minutes : {0, -5, 2000000000}) {
        me->settings.Settings_ANPTM.set(minutes);
        alert();
        world.run(86400);
        EXPECT_TRUE(me->popups.isUp(PopupId::ctrlPopupAlert)) << minutes;
    }
}

TEST_F(PopupTest, DoNotDisturbShowsNothingAndClosesNothing) {
    status("before");
    message("before");
    me->own.doNotDisturb = true;
    me.desktop.calls.clear();
    status("during");
    alert();
    message("during");
    EXPECT_THAT(me.desktop.calls, IsEmpty());
    EXPECT_EQ(popup(PopupId::ctrlPopupStatus)->text, "before");
    EXPECT_TRUE(goesAfter(PopupId::ctrlPopupStatus, 45)) << "its time goes on";
}

TEST_F(PopupTest, TextsArePlainCutAndPrivateOnDemand) {
    status("Tom & Jerry");
    EXPECT_EQ(popup(PopupId::ctrlPopupStatus)->text, "Tom and Jerry");
    message(QString(240, u'w') + ListMark + "quoted");
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->text, QString(240, u'w'));
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->label, "From: Room and Co");
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->fontSize, 10);
    message(QString(241, u'&'));
    QString ands(240, u'&');
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->text, ands.replace(u'&', "and") + "...");
    me->settings.Settings_MNPFS.set(QStringLiteral("2147483647"));
    message("a file that was edited by hand");
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->fontSize, Popups::kLargestFont);
    me->settings.Settings_MPP.set(true);
    message("the patient's secret");
    EXPECT_EQ(popup(PopupId::ctrlPopupMessage)->text, "Message Alert");
    EXPECT_EQ(me->popups.tag(PopupId::ctrlPopupMessage), "A11");
    for (const auto& [stored, shown] : {std::pair{255, 1.0}, {0, 0.0}, {-7, 0.0}, {9999, 1.0}, {51, 0.2}}) {
        me->settings.Settings_SNPTP.set(stored);
        status();
        EXPECT_DOUBLE_EQ(popup(PopupId::ctrlPopupStatus)->opacity, shown) << stored;
    }
}

TEST_F(PopupTest, PlaceOfADraggedPopupIsKept) {
    alert();
    EXPECT_FALSE(popup(PopupId::ctrlPopupAlert)->place);
    me->popups.moved(PopupId::ctrlPopupAlert, {120, -45});
    EXPECT_EQ(place(1), "120,-45");
    EXPECT_EQ(place(0) + place(2), "");
    me->settings.LoadSettings(false); // the next run
    alert();
    EXPECT_EQ(popup(PopupId::ctrlPopupAlert)->place, QPoint(120, -45));
    status();
    EXPECT_FALSE(popup(PopupId::ctrlPopupStatus)->place) << "each kind has a place of its own";

    me->settings.Settings_SNPMS.set(false);
    alert();
    EXPECT_TRUE(popup(PopupId::ctrlPopupAlert)->movable);
    EXPECT_FALSE(popup(PopupId::ctrlPopupAlert)->place) << "the default place";
    me->popups.moved(PopupId::ctrlPopupAlert, {1, 1});
    me->settings.Settings_SNPMS.set(true);
    me->settings.Settings_SNPM.set(false);
    me->popups.moved(PopupId::ctrlPopupAlert, {2, 2});
    alert();
    EXPECT_FALSE(popup(PopupId::ctrlPopupAlert)->movable);
    EXPECT_FALSE(popup(PopupId::ctrlPopupAlert)->place);
    EXPECT_EQ(place(1), "120,-45");

    me->settings.Settings_SNPM.set(true);
    for (const char* const broken : {"", "120", ",", "a,b", "120,", "99999999999,1", "1;2"}) {
        me->settings.Settings_SNPM0.set(broken);
        status();
        ASSERT_TRUE(popup(PopupId::ctrlPopupStatus)) << broken;
        EXPECT_FALSE(popup(PopupId::ctrlPopupStatus)->place) << broken;
    }
    me->settings.Settings_SNPM0.set(" 5 , 6 ");
    status();
    EXPECT_EQ(popup(PopupId::ctrlPopupStatus)->place, QPoint(5, 6));
}

TEST_F(PopupTest, ResetClosesAllAndForgetsOnDemand) {
    me->popups.moved(PopupId::ctrlPopupMessage, {3, 4});
    status();
    alert();
    message();
    me->popups.ResetPopupAlertPositions(false);
    EXPECT_FALSE(popup(PopupId::ctrlPopupStatus) || popup(PopupId::ctrlPopupAlert) ||
                 popup(PopupId::ctrlPopupMessage));
    EXPECT_EQ(place(2), "3,4");
    me->popups.ResetPopupAlertPositions(true);
    EXPECT_FALSE(me.fileBytes(kUserFile).contains("SNPM2"));
    message();
    EXPECT_FALSE(popup(PopupId::ctrlPopupMessage)->place);
}

TEST_F(PopupTest, ClicksOpenMessagesTurnOffTheBarAndClose) {
    QStringList asked;
    QObject::connect(&me->popups, &Popups::openMessage, [&](const QString& id) { asked += "read " + id; });
    QObject::connect(&me->popups, &Popups::openMessageOptions, [&] { asked += "options"; });
    QObject::connect(&me->popups, &Popups::turnOffAlertBar, [&] { asked += "bar off"; });
    const auto click = [&](PopupId id, PopupItem item) {
        asked.clear();
        status();
        alert();
        message();
        me->popups.clicked(id, item);
        return asked.join(u',') + (popup(id) ? " up" : " closed");
    };
    for (const PopupId id : {PopupId::ctrlPopupStatus, PopupId::ctrlPopupAlert}) {
        EXPECT_EQ(click(id, PopupItem::Close), " closed");
        EXPECT_EQ(click(id, PopupItem::Text), " closed") << "it holds no message";
        EXPECT_EQ(click(id, PopupItem::TurnOff), "bar off closed");
        EXPECT_EQ(click(id, PopupItem::Options), " up");
    }
    EXPECT_EQ(click(PopupId::ctrlPopupMessage, PopupItem::Close), " closed");
    EXPECT_EQ(click(PopupId::ctrlPopupMessage, PopupItem::Text), "read A11 closed");
    EXPECT_EQ(click(PopupId::ctrlPopupMessage, PopupItem::TurnOff), " up");
    EXPECT_EQ(click(PopupId::ctrlPopupMessage, PopupItem::Options), "options up");
    asked.clear();
    me->popups.clicked(PopupId::ctrlPopupMessage, PopupItem::Close);
    me->popups.clicked(PopupId::ctrlPopupMessage, PopupItem::Text);
    EXPECT_THAT(asked, IsEmpty()) << "the message id went with the popup";
}
