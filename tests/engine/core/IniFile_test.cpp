// Files of settings: what a user wrote by hand stays, what the program writes can be read back, and
// nothing that comes from outside can break a file.
#include "engine/core/cInifile.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Limits.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

QString valueOf(const QByteArray& bytes, const char* section, const char* key) {
    return cIniDocument(bytes)
        .value(QLatin1String(section), QLatin1String(key))
        .value_or(QStringLiteral("(none)"));
}

class IniFile : public testing::Test {
protected:
    void aim(const QString& section, const QString& key) {
        ini.Path = path;
        ini.Section = section;
        ini.Key = key;
    }
    QString read(const char* section, const char* key) {
        aim(QLatin1String(section), QLatin1String(key));
        ini.Default = QStringLiteral("default");
        return ini.Value();
    }
    bool write(const char* section, const char* key, const QString& value) {
        aim(QLatin1String(section), QLatin1String(key));
        return ini.setValue(value);
    }
    void put(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray bytes() const {
        QByteArray all;
        readWholeFile(path, 1 << 26, all);
        return all;
    }

    QTemporaryDir home;
    QString path = home.filePath(QStringLiteral("user.cfg"));
    cInifile ini;
};

} // namespace

TEST(IniDocument, NamesMatchInAnyCaseAndTheFirstOfDoublesHolds) {
    const QByteArray bytes = "outside=0\n"
                             "[Net]\nka = 1 \nKA=2\n"
                             "; [Net] is not here\n[other]\nka=3\n"
                             "[nET]\nka=4\nlate=5=6;7\n[Broken\nx=8";
    EXPECT_EQ(valueOf(bytes, "NET", "Ka"), "1");
    EXPECT_EQ(valueOf(bytes, "net", "LATE"), "5=6;7") << "a section that stands twice is one";
    EXPECT_EQ(valueOf(bytes, "Other", "ka"), "3");
    EXPECT_EQ(valueOf(bytes, "", "outside"), "0");
    EXPECT_EQ(valueOf(bytes, "broken", "x"), "8") << "no closing bracket, no final line end";
    EXPECT_EQ(valueOf(bytes, "net", "outside"), "(none)");
    EXPECT_EQ(cIniDocument(bytes).sections(), QStringList({"Net", "other", "Broken"}));
    EXPECT_EQ(cIniDocument(bytes).entries("net").size(), 4U);
}

TEST(IniDocument, AChangeLeavesEveryOtherByteAlone) {
    const QByteArray before = "; mine\r\n\r\n[Settings]\r\n  SNP = 1\r\nwhat is this\r\n;SNT=0\r\n"
                              "\r\n[Else]\r\n\x80\xFF=\x01\x02\r\n[settings]\r\nEOC=1";
    cIniDocument document(before);
    ASSERT_TRUE(document.setValue("SETTINGS", "snp", "0"));
    EXPECT_EQ(document.bytes(), QByteArray(before).replace("  SNP = 1", "  SNP =0"));

    ASSERT_TRUE(document.setValue("Settings", "NEW", "x"));
    EXPECT_EQ(
        document.bytes(),
        QByteArray(before).replace("  SNP = 1", "  SNP =0").replace(";SNT=0\r\n", ";SNT=0\r\nNEW=x\r\n"))
        << "behind what the section says, with the file's own line ends";

    ASSERT_TRUE(document.setValue("Settings", "EOC", "0"));
    ASSERT_TRUE(document.setValue("Fresh", "a", "b"));
    EXPECT_TRUE(document.bytes().endsWith("EOC=0\r\n[Fresh]\r\na=b\r\n")) << document.bytes().toStdString();

    document.removeKey("settings", "Snp");
    document.removeKey("settings", "absent");
    document.removeSection("Fresh");
    EXPECT_TRUE(document.bytes().startsWith("; mine\r\n\r\n[Settings]\r\nwhat is this\r\n"));
    EXPECT_FALSE(document.value("Fresh", "a").has_value());

    cIniDocument doubled("[a]\nk=1\nK=2\n[A]\nk=3\n");
    doubled.removeKey("a", "k");
    EXPECT_EQ(doubled.bytes(), "[a]\n[A]\n") << "a deleted key must not come back by its double";
    cIniDocument preamble("; about this file\nk=1\n[]\nx=2\n");
    preamble.removeSection("");
    EXPECT_EQ(preamble.bytes(), "; about this file\nk=1\n");
}

TEST(IniDocument, AnEditorMayPutAMarkBeforeTheFirstLineOrEndLinesItsOwnWay) {
    const QByteArray mark = "\xEF\xBB\xBF";
    for (const QByteArray& end : {QByteArray("\n"), QByteArray("\r\n"), QByteArray("\r")}) {
        for (const QByteArray& start : {QByteArray(), mark}) {
            const QByteArray before =
                start + "[User]" + end + "SID=mine" + end + end + "[Note]" + end + "ACTIVE=x" + end;
            cIniDocument document(before);
            EXPECT_EQ(document.value("User", "SID"), "mine");
            EXPECT_EQ(document.value("Note", "ACTIVE"), "x");
            EXPECT_FALSE(document.damaged());
            ASSERT_TRUE(document.setValue("User", "TAG", "5"));
            ASSERT_TRUE(document.setValue("New", "k", "v"));
            EXPECT_EQ(document.bytes(),
                      QByteArray(before).replace("mine" + end, "mine" + end + "TAG=5" + end) + end + "[New]" +
                          end + "k=v" + end);
        }
    }
    EXPECT_EQ(cIniDocument(mark + "SID=x\n").value("", "SID"), "x");
    EXPECT_TRUE(cIniDocument("no section\n").damaged());
    EXPECT_TRUE(cIniDocument(QByteArray("[User]\nSID=a\0", 13)).damaged());
    EXPECT_TRUE(cIniDocument(QByteArray(4096, '\0')).damaged());
    EXPECT_FALSE(cIniDocument(QByteArray()).damaged());
}

// What another station sends can end up as section, key and value.
TEST(IniDocument, NothingWrittenCanBecomeALineOfItsOwn) {
    const QString evil = QStringLiteral("x\r\n[User]\nSID=stolen\r;");
    const QByteArray before = "[User]\nSID=mine\n";
    for (const QString& section :
         {QStringLiteral("Settings"), evil, QStringLiteral("a]b"), QStringLiteral("[a"),
          QStringLiteral("; c"), QStringLiteral(" s "), QStringLiteral("\u0416")}) {
        for (const QString& key :
             {QStringLiteral("k"), evil, QStringLiteral("[User]"), QStringLiteral(";k"),
              QStringLiteral("a=b"), QString(), QStringLiteral("  "), QStringLiteral("\u0416")}) {
            for (const QString& value : {evil, QStringLiteral(" [User] "), QStringLiteral(";=]"), QString(),
                                         QString(QChar(0)), QString(20000, u'v')}) {
                cIniDocument document(before);
                const bool stored = document.setValue(section, key, value);
                EXPECT_EQ(document.value("User", "SID"), QStringLiteral("mine"));
                EXPECT_EQ(cIniDocument(document.bytes()).value("User", "SID"), QStringLiteral("mine"));
                if (!stored) {
                    EXPECT_EQ(document.bytes(), before);
                    continue;
                }
                QString expected = value;
                expected.replace(u'\r', u' ').replace(u'\n', u' ').replace(QChar(0), u' ');
                EXPECT_EQ(cIniDocument(document.bytes()).value(section, key),
                          expected.trimmed().left(kMaxIniValue));
                EXPECT_LE(document.sections().size(), 2);
            }
        }
    }
}

TEST_F(IniFile, OthersMayChangeTheFileWhileTheProgramRuns) {
    ASSERT_TRUE(write("a", "k", "1"));
    EXPECT_EQ(read("a", "k"), "1");
    put("[a]\nk=2\n"); // as long as before, and within the same tick of the file system
    EXPECT_EQ(read("a", "k"), "2");
    put("[a]\nk=3\nother=4\n");
    ASSERT_TRUE(write("a", "k", "5"));
    EXPECT_EQ(bytes(), "[a]\nk=5\nother=4\n");
    QFile::remove(path);
    EXPECT_EQ(read("a", "k"), "default");
    EXPECT_TRUE(write("a", "k", "6"));
    EXPECT_EQ(bytes(), "[a]\nk=6\n");
    {
        const cInifile::OneReading reading(ini);
        EXPECT_EQ(read("a", "k"), "6");
        put("[a]\nk=7\nother=8\n");
        EXPECT_TRUE(write("a", "mine", "9"));
        EXPECT_EQ(bytes(), "[a]\nk=7\nother=8\nmine=9\n") << "a write looks, whatever was read";
        put("[a]\nk=8\n");
    }
    EXPECT_EQ(read("a", "k"), "8");
}

TEST_F(IniFile, FileIsForItsUserAloneAndComesBackWithItsFolder) {
    path = home.filePath(QStringLiteral("gone/deeper/user.cfg"));
    ASSERT_TRUE(write("a", "k", "1"));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFileInfo(path).permissions() & others);
    QDir(home.filePath(QStringLiteral("gone"))).removeRecursively();
    EXPECT_TRUE(write("a", "k", "2"));
    EXPECT_EQ(read("a", "k"), "2");
}

TEST_F(IniFile, WhatCannotBeReadIsNeverOverwritten) {
    const QByteArray large = "[a]\nk=1\n" + QByteArray(static_cast<qsizetype>(kMaxIniBytes), ';');
    put(large);
    EXPECT_EQ(read("a", "k"), "default");
    EXPECT_FALSE(write("a", "late", "2"));
    EXPECT_EQ(bytes(), large);
    EXPECT_EQ(read("a", "late"), "2") << "it holds for this run";

    put("[a]\nk=1\n" + QByteArray(static_cast<qsizetype>(kMaxIniBytes) - 20, ';'));
    EXPECT_EQ(read("a", "k"), "1");
    EXPECT_FALSE(write("a", "grown", "beyond the limit")) << "it could not be read again";
    EXPECT_EQ(read("a", "grown"), "default") << "what can never be written must not seem to have worked";

    QFile::remove(path);
    QDir().mkdir(path);
    EXPECT_EQ(read("a", "k"), "default");
    EXPECT_FALSE(write("a", "k", "2")) << "a folder stands where the file should be";
}

TEST_F(IniFile, AFullDiskCostsNothingAndTheLastValueGetsIntoTheFileOfThen) {
    const QByteArray before = "[a]\nk=1\nold=1\nkept=1\n";
    put(before);
    int failed = 0;
    ini.written = [&failed](const QString&, bool stored) { failed += stored ? 0 : 1; };
    {
        const FullDisk full;
        EXPECT_FALSE(write("a", "k", "2"));
        EXPECT_FALSE(write("A", "K", "3"));
        aim("a", "old");
        EXPECT_FALSE(ini.DeleteKey());
        EXPECT_EQ(bytes(), before) << "the good file must not give way to an empty one";
        EXPECT_EQ(read("a", "k"), "3");
        ini.tryAgain();
        EXPECT_EQ(failed, 4);
        EXPECT_EQ(QDir(home.path()).entryList(QDir::Files), QStringList("user.cfg"));
    }
    put("; by hand\n[a]\nk=7\nold=7\nkept=7\n");
    ini.tryAgain();
    EXPECT_EQ(bytes(), "; by hand\n[a]\nk=3\nkept=7\n");
    put("[a]\nk=8\n");
    ini.tryAgain();
    EXPECT_EQ(read("a", "k"), "8") << "once written, it is others' to change";

    {
        const FullDisk full;
        EXPECT_FALSE(write("a", "k", "9"));
    }
    EXPECT_TRUE(write("b", "next", "1"));
    EXPECT_EQ(bytes(), "[a]\nk=9\n\n[b]\nnext=1\n") << "the next write takes what waits along";
}

TEST_F(IniFile, SeveralKeysAtOnceAndWholeSections) {
    put("[a]\n; keep\nx=1\ny=2\n[b]\nz=3\n");
    aim("a", {});
    EXPECT_TRUE(ini.setValues({{"x", "9"}, {"new", "8"}}));
    EXPECT_EQ(bytes(), "[a]\n; keep\nx=9\ny=2\nnew=8\n[b]\nz=3\n");
    EXPECT_TRUE(ini.DeleteSection());
    EXPECT_EQ(bytes(), "[b]\nz=3\n");
    aim("b", "z");
    EXPECT_TRUE(ini.DeleteKey());
    EXPECT_EQ(bytes(), "[b]\n");

    EXPECT_EQ(cInifile::CLngDefault(" 12 ", 5), 12);
    EXPECT_EQ(cInifile::CLngDefault("12x", 5), 5);
    EXPECT_EQ(cInifile::CLngDefault("99999999999", 5), 5);
}
