#include "controls/look/Images.h"

#include <QDir>
#include <QFile>
#include <QPalette>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>

using namespace tessel;

namespace {

QDir resources() {
    return {QStringLiteral(TESSEL_RESOURCES)};
}

} // namespace

// A file that the resources forget is an empty button in the program alone, where no test looks; one
// that no number asks for is dead weight.
TEST(Images, TableFolderAndResourcesAgree) {
    std::set<QString> wanted{QStringLiteral("tessel.svg")}; // the program's own, shown by name
    for (const int number : Images::numbers()) {
        wanted.insert(Images::fileName(number));
    }

    const QStringList names =
        QDir(resources().filePath(QStringLiteral("icons"))).entryList(QDir::Files | QDir::NoDotAndDotDot);
    EXPECT_EQ(std::set<QString>(names.begin(), names.end()), wanted);

    QFile list(resources().filePath(QStringLiteral("tessel.qrc")));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(list.readAll());
    std::set<QString> packed;
    static const QRegularExpression entry(QStringLiteral("<file>icons/([^<]+)</file>"));
    for (const QRegularExpressionMatch& match : entry.globalMatch(text)) {
        packed.insert(match.captured(1));
    }
    EXPECT_EQ(packed, wanted);
}
