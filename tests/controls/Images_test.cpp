#include "controls/look/Images.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <set>

using namespace tessel;

namespace {

QDir resources() {
    return {QStringLiteral(TESSEL_RESOURCES)};
}

// Pictures straight from their files: this program has none of the resources of the real one.
Images picturesOfFiles() {
    return Images(resources().filePath(QStringLiteral("icons")));
}

QPalette paletteWith(QRgb text, QRgb dimmed, QRgb accent) {
    QPalette palette;
    palette.setColor(QPalette::Text, QColor(text));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(dimmed));
    palette.setColor(QPalette::Link, QColor(accent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette lightPalette() {
    return paletteWith(0xFF1E2329, 0xFF717A85, 0xFF1F6FB2);
}

std::set<QString> filesOfTable() {
    std::set<QString> files;
    for (const int number : Images::numbers()) {
        files.insert(Images::fileName(number));
    }
    return files;
}

} // namespace

// A file that the resources forget is an empty button in the program alone, where no test looks; one
// that no number asks for is dead weight.
TEST(Images, TableFolderAndResourcesAgree) {
    std::set<QString> wanted = filesOfTable();
    wanted.insert(QStringLiteral("tessel.svg")); // the program's own, shown by name

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

// Engines hand on numbers that came with old data or from the network.
TEST(Images, NumberWithoutPictureIsNull) {
    const Images images = picturesOfFiles();
    for (const int number : {-1, 2, 40, 150, 899, 904, 32904, 1 << 30}) {
        EXPECT_TRUE(images.image(number, lightPalette()).isNull()) << number;
        EXPECT_TRUE(Images::fileName(number).isEmpty()) << number;
    }
}
