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

constexpr QRgb kPaper = 0xFFFFFFFF;
constexpr QRgb kNight = 0xFF1B1E24;
constexpr QRgb kChosen = 0xFF1F6FB2; // behind a selected entry

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

QPalette darkPalette() {
    return paletteWith(0xFFE6E9ED, 0xFF98A1AC, 0xFF6DB3EE);
}

QImage bare(const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(side, side), 1.0, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

// As a user sees it who has `back` behind it.
QImage onto(QRgb back, const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(back);
    QPainter painter(&image);
    icon.paint(&painter, image.rect(), Qt::AlignCenter, mode);
    return image;
}

double luminance(QRgb color) {
    const auto part = [](int value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

double contrast(QRgb one, QRgb other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

int readableDots(const QImage& image, QRgb back, double least) {
    int dots = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            dots += contrast(image.pixel(x, y), back) >= least;
        }
    }
    return dots;
}

std::set<QString> filesOfTable() {
    std::set<QString> files;
    for (const int number : Images::numbers()) {
        files.insert(Images::fileName(number));
    }
    return files;
}

} // namespace

// A picture that is missing or too faint leaves a button or a row without its sign.
TEST(Images, EachCanBeSeenOnLightAndOnDark) {
    constexpr int kFewestDots = 14; // of 256; the thinnest, the cross that closes, has some 20
    const Images images = picturesOfFiles();
    for (const int number : Images::numbers()) {
        SCOPED_TRACE(testing::Message() << number << " " << Images::fileName(number).toStdString());
        const QIcon light = images.image(number, lightPalette());
        const QIcon dark = images.image(number, darkPalette());
        EXPECT_GE(readableDots(onto(kPaper, light, 16), kPaper, 2.2), kFewestDots);
        EXPECT_GE(readableDots(onto(kNight, dark, 16), kNight, 2.2), kFewestDots);
        EXPECT_GE(readableDots(onto(kPaper, light, 16, QIcon::Disabled), kPaper, 1.4), kFewestDots);
        EXPECT_GE(readableDots(onto(kNight, dark, 16, QIcon::Disabled), kNight, 1.4), kFewestDots);
        EXPECT_NE(bare(light, 24), bare(light, 24, QIcon::Disabled));
    }
}

// What is drawn in ink follows the palette in every stroke: one stroke left in the colour of the file
// is lost on a dark window. What has colours of its own looks the same everywhere.
TEST(Images, InkFollowsThePaletteAndAlarmColoursStay) {
    const Images images = picturesOfFiles();
    const QPalette red = paletteWith(0xFFFF0000, 0xFFFF0000, 0xFFFF0000);
    for (const int number : Images::numbers()) {
        SCOPED_TRACE(testing::Message() << number << " " << Images::fileName(number).toStdString());
        QFile file(resources().filePath(QStringLiteral("icons/") + Images::fileName(number)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const bool inked = file.readAll().contains("currentColor");
        const QImage light = bare(images.image(number, lightPalette()), 32);
        EXPECT_EQ(light != bare(images.image(number, darkPalette()), 32), inked);
        if (!inked) {
            EXPECT_EQ(light, bare(images.image(number, red), 32));
            continue;
        }
        const QImage image = bare(images.image(number, red), 32);
        int strange = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb dot = image.pixel(x, y);
                strange += qAlpha(dot) > 32 && (qRed(dot) < 240 || qGreen(dot) > 15 || qBlue(dot) > 15);
            }
        }
        EXPECT_EQ(strange, 0);
    }
    EXPECT_GT(readableDots(onto(kChosen, images.image(Image::Sort, lightPalette()), 16, QIcon::Selected),
                           kChosen, 3),
              14);
}

TEST(Images, AlertsAndTagsAreToldApartByColour) {
    const Images images = picturesOfFiles();
    const auto hue = [&images](Image picture) {
        const QImage image = bare(images.image(picture, lightPalette()), 32);
        qint64 red = 0;
        qint64 green = 0;
        qint64 blue = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb dot = image.pixel(x, y);
                // White signs on a badge say nothing of its colour.
                if (qAlpha(dot) == 255 && qMin(qRed(dot), qMin(qGreen(dot), qBlue(dot))) < 140) {
                    red += qRed(dot);
                    green += qGreen(dot);
                    blue += qBlue(dot);
                }
            }
        }
        const double all = static_cast<double>(std::max<qint64>(red + green + blue, 1));
        return std::pair(static_cast<double>(red) / all, static_cast<double>(green) / all);
    };
    const auto expectApart = [&hue](const std::vector<Image>& pictures) {
        for (size_t one = 0; one < pictures.size(); ++one) {
            for (size_t other = one + 1; other < pictures.size(); ++other) {
                const auto [r1, g1] = hue(pictures[one]);
                const auto [r2, g2] = hue(pictures[other]);
                EXPECT_GT(std::hypot(r1 - r2, g1 - g2), 0.04)
                    << static_cast<int>(pictures[one]) << " and " << static_cast<int>(pictures[other]);
            }
        }
    };
    expectApart({Image::Urgent, Image::Doorbell, Image::Phone});
    expectApart({Image::BarUrgent, Image::BarDoorbell, Image::BarPhone});
    std::vector<Image> tags;
    for (int tag = 0; tag < 10; ++tag) {
        tags.push_back(static_cast<Image>(static_cast<int>(Image::TagStethoscope) + tag));
    }
    expectApart(tags);
}

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

// A window that never shows an icon must not pay for drawing one, and one that paints often not twice.
TEST(Images, EachIsMadeOncePerPaletteAndDrawnOncePerSize) {
    const Images images = picturesOfFiles();
    QPixmapCache::clear();
    const QIcon first = images.image(Image::Home, lightPalette());
    EXPECT_EQ(first.cacheKey(), images.image(Image::Home, lightPalette()).cacheKey());
    EXPECT_NE(first.cacheKey(), images.image(Image::Home, darkPalette()).cacheKey());
    EXPECT_EQ(first.pixmap(QSize(16, 16), 1.0).cacheKey(),
              images.image(Image::Home, lightPalette()).pixmap(QSize(16, 16), 1.0).cacheKey());

    // A desktop that changes its accent alone is followed, too.
    const QIcon repainted = images.image(Image::Home, paletteWith(0xFF1E2329, 0xFF717A85, 0xFFD01010));
    EXPECT_NE(bare(repainted, 16), bare(first, 16));

    // Many palettes, as of a window that blends from one to another, do not change what is shown.
    const QImage before = bare(first, 16);
    for (int shade = 0; shade < 1000; ++shade) {
        images.image(Image::Home, paletteWith(0xFF000000 | static_cast<QRgb>(shade), 0, 0));
    }
    EXPECT_EQ(bare(images.image(Image::Home, lightPalette()), 16), before);
}

// On a screen of twice the dots the picture is drawn anew, not blown up; in a room that is not square
// it keeps its shape.
TEST(Images, SharpOnDenseScreensAndNeverSquashed) {
    const QIcon icon = picturesOfFiles().image(Image::About, lightPalette());
    const QPixmap dense = icon.pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(dense.size(), QSize(32, 32));
    EXPECT_EQ(dense.deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_EQ(icon.pixmap(QSize(40, 16), 1.0).size(), QSize(16, 16));
    EXPECT_TRUE(icon.pixmap(QSize(0, 16), 1.0).isNull());

    QImage wide(40, 16, QImage::Format_RGB32);
    wide.fill(kPaper);
    QPainter painter(&wide);
    icon.paint(&painter, wide.rect());
    painter.end();
    EXPECT_EQ(wide.copy(12, 0, 16, 16), onto(kPaper, icon, 16));
}

TEST(Images, FolderWithoutFilesGivesEmptyPicturesAndOneWarning) {
    static int warnings;
    warnings = 0;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
    const Images lost(QStringLiteral("/nonexistent"));
    for (int painting = 0; painting < 3; ++painting) {
        onto(kPaper, lost.image(Image::Home, lightPalette()), 16);
    }
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings, 1);
}
