// The Home list: what users see of each location.
#include "engine/core/mod_ElapsedText.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

using namespace tessel;

namespace {
class HomeList : public LoneStation {
protected:
    const ReportItem& name(const QString& SID = kOther) { return item(*viewRow(SID), LocationItem::Active); }
};
} // namespace

TEST(ElapsedText, GrowsFromPlainTextToDays) {
    const auto text = [](int minutes, ElapsedForm form, int stimer = 1) {
        return ElapsedText("1:00:00 AM", "Out", form, 3600 + minutes * 60, stimer);
    };
    EXPECT_EQ(text(1, ElapsedForm::WithText), "Out");
    EXPECT_EQ(text(2, ElapsedForm::WithText), "Out: 2min");
    EXPECT_EQ(text(61, ElapsedForm::WithText), "Out: 1hr:1min");
    EXPECT_EQ(text(5, ElapsedForm::WithText, 5), "Out");
    EXPECT_EQ(text(6, ElapsedForm::WithSuffix, 5), "Out: 6min Elapsed Time");
    EXPECT_EQ(text(5, ElapsedForm::WithSuffix, 5), "Out");
    EXPECT_EQ(text(24 * 60, ElapsedForm::TimeOnly), ": 24hr:0min");
    EXPECT_EQ(text(25 * 60, ElapsedForm::WithText), "Out24Hrs+");
    EXPECT_EQ(text(-30, ElapsedForm::WithText), "Out") << "after midnight the plain text stays";
    EXPECT_EQ(text(0, ElapsedForm::TimeOnly), ": 0min");
}

TEST_F(HomeList, ShowsALocationAsItAnnouncesItself) {
    begin();
    hear({.code = "XAN",
          .presence = presence("Out", "8:30:00 AM", true, "Ann", 33, "8:00:00 AM", true),
          .note = "note",
          .tagWord = "12:0"});
    EXPECT_EQ(shown(LocationItem::Icon), "");
    EXPECT_EQ(shown(LocationItem::Active), "Outside");
    EXPECT_EQ(shown(LocationItem::Status), "Out: 30min");
    EXPECT_EQ(shown(LocationItem::TIME), "8:30:00 AM");
    EXPECT_EQ(shown(LocationItem::ST), "12");
    EXPECT_EQ(shown(LocationItem::VR), "TSL2");
    EXPECT_EQ(item(*viewRow(), LocationItem::Staff).value, 33);
    EXPECT_EQ(name().value, kOccupiedValue);
    EXPECT_EQ(name().foreColor, kRed);
    EXPECT_EQ(viewRow()->tip(static_cast<int>(LocationItem::Active)), "Ann");
    EXPECT_EQ(viewRow()->preview, "note");
    EXPECT_EQ(item(*viewRow(), LocationItem::Icon).backColor, argb(17, 94, 50));
    EXPECT_EQ(item(*viewRow(), LocationItem::Icon).foreColor, kWhite) << "a dark tag";
    EXPECT_FALSE(viewRow()->pinned);

    EXPECT_EQ(shown(LocationItem::Icon, kMe), "|");
    EXPECT_EQ(name(kMe).foreColor, kBlue);
    EXPECT_TRUE(viewRow(kMe)->pinned);
    hear({.SID = "short", .code = "XAN", .presence = presence("x"), .note = "abc", .tagWord = "41:0"});
    EXPECT_EQ(shown(LocationItem::Status, "short"), " ");
    EXPECT_EQ(viewRow("short")->preview, "");
    EXPECT_EQ(item(*viewRow("short"), LocationItem::Icon).backColor, kNoColor);
    for (const char* const flags : {"-5:0", "40:0", "99999:0", "0:", "x", ""}) {
        hear({.SID = flags, .code = "XAN", .tagWord = flags});
        EXPECT_EQ(item(*viewRow(flags), LocationItem::Icon).backColor, kNoColor) << flags;
    }
}

TEST_F(HomeList, FollowsEachChange) {
    begin();
    hear("XAN");
    hear({.code = "XAS", .presence = presence(" Busy ", " 9:00:00 AM ", true, "Bob"), .note = "long note"});
    EXPECT_EQ(shown(LocationItem::Status), "Busy");
    EXPECT_EQ(shown(LocationItem::TIME), "9:00:00 AM");
    EXPECT_EQ(item(*viewRow(), LocationItem::Status).value, 1);
    EXPECT_EQ(name().value, kOccupiedValue);
    EXPECT_EQ(viewRow()->preview, "long note");
    hear({.code = "XALU", .presence = presence({}, {}, false, {}, 0, {}, true)});
    EXPECT_EQ(name().value, 0);
    EXPECT_EQ(name().foreColor, kRed);
    EXPECT_EQ(viewRow()->tip(static_cast<int>(LocationItem::Active)), "");
    EXPECT_EQ(shown(LocationItem::Status), "Busy");
    hear({.code = "XALU"});
    EXPECT_EQ(name().foreColor, kNoColor);
    hear({.code = "XAST", .presence = presence({}, {}, false, {}, 38)});
    EXPECT_EQ(item(*viewRow(), LocationItem::Staff).value, 38);
    EXPECT_EQ(item(*viewRow(), LocationItem::Staff).icon, 38);
    hear({.code = "XAST", .presence = presence({}, {}, false, {}, 100)});
    EXPECT_EQ(item(*viewRow(), LocationItem::Staff).icon, -1) << "not the picture of another command";
    hear({.code = "XAS"});
    EXPECT_EQ(shown(LocationItem::Status), " ");
    EXPECT_EQ(shown(LocationItem::TIME), " ");
    EXPECT_EQ(shown(LocationItem::OST), " ");
    EXPECT_EQ(item(*viewRow(), LocationItem::Status).value, 0);
    EXPECT_EQ(viewRow()->preview, "");
    hear({.code = "XAS", .presence = presence("x")});
    EXPECT_EQ(shown(LocationItem::Status), "x");

    hear({.SID = kMe, .code = "XALU", .presence = presence({}, {}, true, "Me", 0, {}, true)});
    EXPECT_EQ(name(kMe).foreColor, kBlue) << "the own row keeps its colour";
}
