#include "engine/presence/mod_LocationWords.h"

#include "engine/presence/mod_LocationViews.h"
#include "support/LoneStation.h"

using namespace tessel;

namespace {
class LocationWords : public LoneStation {};
} // namespace

// Who looks for a free room, and who hears the rows instead of seeing them, is told what the pictures show.
TEST_F(LocationWords, TellTheStateOfARow) {
    begin();
    hear({.code = "XAN", .tagWord = "8:0"});
    EXPECT_EQ(SpokenState(*viewRow()), "free, colour tag red");
    EXPECT_TRUE(SearchWords(*viewRow()).contains("free"));
    EXPECT_EQ(SpokenState(*viewRow(kMe)), "this location, free, colour tag yellow");

    const QString now = world.clock.timeText();
    hear({.code = "XAS", .presence = presence("At lunch", now, true, "Miller")});
    EXPECT_EQ(SpokenState(*viewRow()), "occupied, colour tag red");
    hear({.code = "XALU", .presence = presence("At lunch", now, true, "Miller", 0, {}, true)});
    EXPECT_EQ(SpokenState(*viewRow()), "occupied, do not disturb, colour tag red");
    const QString words = SearchWords(*viewRow());
    for (const char* const word : {"occupied", "Miller", "status:At", "status:lunch"}) {
        EXPECT_TRUE(words.contains(QLatin1String(word))) << word;
    }
    EXPECT_FALSE(words.contains("free"));
    EXPECT_FALSE(isDoNotDisturb(*viewRow(kMe)));
    me->status.SetDND();
    world.run(1);
    EXPECT_TRUE(isDoNotDisturb(*viewRow(kMe))) << "the own name is blue, but the slot tells it";
    EXPECT_EQ(SpokenState(*viewRow(kMe)), "this location, do not disturb, colour tag yellow");
    EXPECT_TRUE(SearchWords(*viewRow(kMe)).contains("dnd"));
}

// The age stands apart, so it must be the age and nothing of the text.
TEST_F(LocationWords, KnowTheAgeFromTheStatus) {
    begin();
    hear({.code = "XAN", .presence = presence("Back: 5min")});
    EXPECT_EQ(AgeLength(*viewRow()), 0) << "a text that only looks like an age";
    const QString start = world.clock.timeText();
    hear({.code = "XAS", .presence = presence("Back: 5min", start)});
    EXPECT_EQ(AgeLength(*viewRow()), 0);
    world.run(12 * 60);
    hear({.code = "XRKA", .presence = presence("Back: 5min", start)});
    EXPECT_EQ(shown(LocationItem::Status).right(AgeLength(*viewRow())), ": 12min");
}
