// Links on the desktop that set a quick status.
#include "engine/core/mod_FileTools.h"
#include "support/LoneStation.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

using namespace tessel;

namespace {

class ShortcutsOf : public LoneStation {
protected:
    QStringList links() const { return QDir(me.facts.desktop).entryList(QDir::Files); }
};

} // namespace

TEST_F(ShortcutsOf, ALinkStartsTheClientWithTheSlotsNumber) {
    QDir().mkpath(me.facts.desktop);
    begin();
    EXPECT_EQ(me->shortcuts.create(1, " ", "Busy").caption, "Missing Status Name 2");
    EXPECT_EQ(me->shortcuts.create(1, "Desk", "").text, "Please enter a Message for this Status");
    EXPECT_EQ(links(), QStringList());
    const Shortcuts::Answer answer = me->shortcuts.create(1, "At 50% \"x\"", "Busy");
    EXPECT_EQ(answer.caption, "Tessel Status");
    EXPECT_EQ(answer.text, "A Shortcut was created on your Windows Desktop.\r\n\r\n"
                           "Shortcut Name: At 50% \"x\"\r\nHotKey: Ctrl+Alt+2\r\n\r\n"
                           "Double click this shortcut or press Ctrl+Alt+2 on your keyboard to set or "
                           "remove this status.\r\n\r\n"
                           "Bind the key in the desktop's settings to: tslapp /s:1");
    ASSERT_EQ(links(), QStringList{"At 50% \"x\" Ctrl+Alt+2.desktop"});
    const QFileInfo link(me.facts.desktop + links().first());
    EXPECT_EQ(link.permissions() & 0x7777, 0x7755);
    QByteArray entry;
    ASSERT_TRUE(readWholeFile(link.filePath(), 4096, entry));
    EXPECT_TRUE(entry.contains("\nExec=\"" + me.facts.programFolder.toUtf8() + "tslapp\" /s:1\n"))
        << entry.constData();
}

TEST_F(ShortcutsOf, ANameThatIsNoFileNameIsToldAndLeadsNowhere) {
    QDir().mkpath(me.facts.desktop);
    begin();
    for (const QString& name : {QString("../x"), QString("a/b"), QString(400, u'n')}) {
        EXPECT_TRUE(
            me->shortcuts.create(0, name, "Busy").text.startsWith("The Shortcut could not be written"))
            << qPrintable(name);
    }
    EXPECT_EQ(links(), QStringList());
    EXPECT_FALSE(QFileInfo::exists(me.facts.desktop + "../x Ctrl+Alt+1.desktop"));
}
