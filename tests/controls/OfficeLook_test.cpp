#include "controls/list/ReportColors.h"
#include "controls/look/OfficeLook.h"
#include "controls/look/PaintKit.h"
#include "controls/look/Tokens.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyle>

#include <gtest/gtest.h>

using namespace tessel;

// Whoever walks through a menu must see the picture of the very row that is next.
TEST(OfficeLook, TheChosenRowOfAMenuKeepsItsPicture) {
    const QPalette before = QApplication::palette();
    SetStyle();
    QPixmap accent(32, 32);
    accent.fill(QApplication::palette().color(QPalette::Link));
    QMenu menu;
    QAction* const action = menu.addAction(QIcon(accent), QStringLiteral("DoorBell"));
    menu.popup({});
    menu.setActiveAction(action);
    const QImage shown = menu.grab().toImage();
    const QRect row = menu.actionGeometry(action);
    const QColor back = shown.pixelColor(row.right() - 4, row.center().y());
    int seen = 0;
    for (int x = row.left(); x < row.left() + row.height(); ++x) {
        const QColor dot = shown.pixelColor(x, row.center().y());
        seen += std::abs(dot.lightness() - back.lightness()) > 40;
    }
    EXPECT_GE(seen, 10);
    EXPECT_NE(back, menu.palette().color(QPalette::Window)) << "and that it is chosen";
    QApplication::setPalette(before);
    QApplication::setStyle(QStringLiteral("fusion"));
}

// Captions that nobody can read, and boxes that nobody finds.
TEST(OfficeLook, EveryPairOfColoursHasTheContrastThatItNeeds) {
    for (const bool dark : {false, true}) {
        const QPalette palette = officePalette(dark);
        const auto expect = [&](const QColor& ink, QPalette::ColorRole back, double least, const char* what) {
            EXPECT_GE(contrastRatio(ink, palette.color(back)), least) << what << (dark ? " dark" : " light");
        };
        using P = QPalette;
        for (const P::ColorRole back : {P::Window, P::Base, P::AlternateBase, P::Button}) {
            expect(palette.color(P::Text), back, 7.0, "text");
            expect(palette.color(P::PlaceholderText), back, look::kTextContrast, "caption");
            expect(palette.color(P::Link), back, look::kTextContrast, "link");
            expect(palette.color(P::Disabled, P::Text), back, look::kTextContrast, "disabled");
        }
        for (const P::ColorRole back : {P::Window, P::Base, P::Button}) {
            expect(frameColor(palette), back, look::kPartContrast, "frame");
            expect(palette.color(P::Highlight), back, look::kPartContrast, "focus and selection bar");
        }
        expect(palette.color(P::HighlightedText), P::Highlight, look::kTextContrast, "highlighted");
        expect(palette.color(P::ToolTipText), P::ToolTipBase, 7.0, "tip");
    }
}

// A black tag on a dark row, and a white one on a light one, are as good as none.
TEST(OfficeLook, EveryTagStandsOutOnEveryRow) {
    const QColor tags[] = {{245, 236, 3},   {24, 187, 2},   {254, 254, 254}, {3, 232, 246},   {188, 186, 187},
                           {172, 146, 111}, {243, 161, 55}, {252, 1, 1},     {251, 174, 225}, {180, 143, 235},
                           {175, 186, 20},  {17, 94, 50},   {53, 60, 214},   {8, 8, 8},       {108, 106, 104},
                           {101, 69, 35},   {217, 106, 39}, {161, 29, 29},   {246, 5, 209},   {109, 45, 187}};
    for (const bool dark : {false, true}) {
        PaintKit kit;
        kit.setPalette(officePalette(dark));
        for (int bits = 0; bits < 16; ++bits) {
            const RowState state{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
            const QColor row = kit.rowBack(kit.palette().color(QPalette::Base), state);
            for (const QColor& tag : tags) {
                EXPECT_GE(contrastRatio(kit.outline(tag, row), row), look::kPartContrast)
                    << tag.name().toStdString();
            }
            const QColor quiet = blend(row, kit.palette().color(QPalette::Text), look::kQuiet);
            EXPECT_GE(contrastRatio(kit.ink(quiet, row), row), look::kTextContrast);
        }
    }
}
