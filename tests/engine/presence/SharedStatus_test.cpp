// The shared statuses as shared.dat has them, however it was edited.
#include "support/LoneStation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SharedTable : public LoneStation {
protected:
    QStringList choices() {
        QStringList all;
        for (const SharedStatusChoice& choice : me->sharedStatus.FillSharedStatusList()) {
            all += QString::number(choice.index) + u' ' + choice.label + u' ' +
                   me->sharedStatus.entry(choice.index).Tone;
        }
        return all;
    }
};

} // namespace

TEST_F(SharedTable, FollowsTheFileAndOutlivesIt) {
    begin();
    EXPECT_FALSE(me->sharedStatus.fileThere());
    EXPECT_THAT(choices(), IsEmpty());
    for (const auto& [key, value] :
         {std::pair{"0", "Lunch:|:2"}, {"7", "No tone"}, {"19", "Late:|:0:|:more"}, {"20", "Beyond:|:1"}}) {
        me.set(kSharedFile, "sharedstatus", key, value);
    }
    me->sharedStatus.LoadSharedStatus();
    EXPECT_THAT(choices(), ElementsAre("0 Lunch 2", "7 No tone ", "19 Late 0"));
    EXPECT_TRUE(me->status.SetStatusIDX(19));
    EXPECT_EQ(me->own.status + me->own.statusTone, "Late0");
    EXPECT_FALSE(me->status.SetStatusIDX(20));

    ASSERT_TRUE(QFile::remove(me->folders.dataFile(kSharedFile)));
    me->sharedStatus.LoadSharedStatus();
    EXPECT_FALSE(me->sharedStatus.fileThere());
    EXPECT_THAT(choices(), IsEmpty());
    EXPECT_TRUE(me->sharedStatus.entry(0).Active) << "the table stays as it was";
}
