// What users see, compared with pictures of it that somebody has looked at.
//
// Compared are averages of small blocks, so that letters may be drawn a little differently; a text that
// is cut, a row that has moved or a colour that is lost shows in many of them. After a change that is
// meant: scripts/renew-look, and look at what it says has changed.
#include "Office.h"

#include "controls/bars/CommandMenu.h"
#include "controls/list/ReportControl.h"
#include "engine/station.h"
#include "windows/mainwindow/ViewStack.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace tessel;

namespace {

constexpr int kBlock = 8;       // pixels
constexpr int kTolerance = 28;  // of 255, in one colour of a block
constexpr double kMost = 0.004; // of the blocks may differ by more
constexpr int kSlack = 2;       // pixels of height, where the content makes it

struct Scene {
    const char* name;
    bool dark;
    int points;
    QImage (*take)(Office& office);
};

template <int width, int height> QImage window(Office& office) {
    office.window({width, height});
    return office.picture();
}

void ring(Office& office, const char* code, const char* who, const QString& text) {
    office.hear(QLatin1String(code), office.me()->own.SID + ValueMark + text, QLatin1String(who));
}

template <int width, int height> QImage alerted(Office& office) {
    ring(office, "XAUM", "Triage", QStringLiteral("Need help lifting NOW & bring chair"));
    office.me()->status.SetDND();
    return window<width, height>(office);
}

template <View view> QImage empty(Office& office) {
    frmMain& form = office.window({480, 480});
    office.me()->shell.SetTabView(static_cast<int>(view));
    Q_UNUSED(form)
    return office.picture();
}

QImage searched(Office& office) {
    frmMain& form = office.window({480, 480});
    form.findChild<QLineEdit*>(QStringLiteral("txtSearch"))->setText(QStringLiteral("occupied"));
    form.stack()->home().selectKey(4, u"204AB204CDE0");
    return office.picture();
}

QImage doorbell(Office& office) {
    ring(office, "XAD1", "Front Desk 2", QStringLiteral("Please come"));
    return office.popup(PopupId::ctrlPopupAlert);
}

QImage urgent(Office& office) {
    ring(office, "XAUM", "Triage", QStringLiteral("Need help lifting NOW & bring chair"));
    return office.popup(PopupId::ctrlPopupAlert);
}

QImage message(Office& office) {
    const QStringList values{QStringLiteral("0"), QStringLiteral(":"), QStringLiteral("1AA1AA111AAA"),
                             QStringLiteral("The lab is waiting for the papers of the patient in room 3.")};
    office.hear(QStringLiteral("XATE"), values.join(ValueMark), QStringLiteral("Lab"));
    return office.popup(PopupId::ctrlPopupMessage);
}

QImage rowMenu(Office& office) {
    frmMain& form = office.window({480, 640});
    form.stack()->home().selectKey(4, u"205AB205CDE0");
    emit form.stack()->home().recordMenuRequested(form.stack()->home().currentRecord(),
                                                  form.mapToGlobal(QPoint(40, 40)));
    QTest::qWait(150); // a little longer than the menu waits for the selection to settle
    QWidget* const menu = QApplication::activePopupWidget();
    if (menu != nullptr && menu->focusWidget() != nullptr) {
        menu->focusWidget()->clearFocus(); // who has it is the desktop's business
    }
    const QImage picture = menu != nullptr ? menu->grab().toImage() : QImage();
    if (menu != nullptr) {
        menu->close();
    }
    return picture;
}

constexpr Scene kScenes[] = {
    {"main-light-10-480", false, 10, window<480, 720>},
    {"main-dark-10-480", true, 10, window<480, 720>},
    {"main-light-8-320", false, 8, window<320, 480>},
    {"main-dark-8-480", true, 8, window<480, 480>},
    {"main-light-10-320", false, 10, window<320, 560>},
    {"main-dark-10-320", true, 10, window<320, 560>},
    {"main-light-14-480", false, 14, window<480, 640>},
    {"main-dark-14-320", true, 14, window<320, 640>},
    {"main-light-20-480", false, 20, window<480, 680>},
    {"main-dark-10-1000", true, 10, window<1000, 480>},
    {"main-light-10-1000", false, 10, window<1000, 480>},
    {"alert-light-10-300", false, 10, alerted<300, 320>},
    {"alert-dark-10-480", true, 10, alerted<480, 480>},
    {"empty-light-10", false, 10, empty<View::Favorites>},
    {"empty-dark-14", true, 14, empty<View::Favorites>},
    {"search-light-10", false, 10, searched},
    {"search-dark-10", true, 10, searched},
    {"doorbell-light-10", false, 10, doorbell},
    {"urgent-light-10", false, 10, urgent},
    {"urgent-dark-20", true, 20, urgent},
    {"message-light-10", false, 10, message},
    {"message-dark-10", true, 10, message},
    {"menu-light-10", false, 10, rowMenu},
    {"menu-dark-14", true, 14, rowMenu},
};

QString reference(const char* name) {
    return QStringLiteral(TESSEL_REFERENCES) + u'/' + QLatin1String(name) + QStringLiteral(".png");
}

QColor average(const QImage& picture, int left, int top) {
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int y = top; y < top + kBlock; ++y) {
        for (int x = left; x < left + kBlock; ++x) {
            const QRgb dot = picture.pixel(x, y);
            red += qRed(dot);
            green += qGreen(dot);
            blue += qBlue(dot);
        }
    }
    constexpr int kDots = kBlock * kBlock;
    return {red / kDots, green / kDots, blue / kDots};
}

// The share of the blocks that look different.
double difference(const QImage& a, const QImage& b) {
    int blocks = 0;
    int different = 0;
    const QSize common = a.size().boundedTo(b.size());
    for (int y = 0; y + kBlock <= common.height(); y += kBlock) {
        for (int x = 0; x + kBlock <= common.width(); x += kBlock) {
            const QColor one = average(a, x, y);
            const QColor other = average(b, x, y);
            const int worst =
                std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                          std::abs(one.blue() - other.blue())});
            ++blocks;
            different += worst > kTolerance ? 1 : 0;
        }
    }
    return blocks == 0 ? 1 : static_cast<double>(different) / blocks;
}

void look(const Scene& scene) {
    QImage shown;
    {
        Office office(scene.dark, scene.points);
        shown = scene.take(office).convertToFormat(QImage::Format_RGB32);
    }
    ASSERT_FALSE(shown.isNull());
    const QImage known = QImage(reference(scene.name)).convertToFormat(QImage::Format_RGB32);
    const double differs = known.isNull() ? 1 : difference(shown, known);
    const bool sized = shown.width() == known.width() && std::abs(shown.height() - known.height()) <= kSlack;
    if (qEnvironmentVariableIsSet("TESSEL_RENEW_PICTURES")) {
        // What differs in the drawing of its letters alone stays, so that the repository does not grow for
        // nothing.
        if (!sized || differs > 0) {
            ASSERT_TRUE(shown.save(reference(scene.name)));
            std::printf("renewed: %s\n", scene.name);
        }
        return;
    }
    const QString beside = QDir::current().filePath(QLatin1String(scene.name) + QStringLiteral(".png"));
    if (!sized || differs > kMost) {
        shown.save(beside);
    }
    EXPECT_TRUE(sized) << shown.width() << "x" << shown.height() << ", as in " << beside.toStdString();
    EXPECT_LE(differs, kMost) << "of its blocks; see " << beside.toStdString();
}

} // namespace

TEST(Pictures, LookAsTheyDid) {
    for (const Scene& scene : kScenes) {
        SCOPED_TRACE(scene.name);
        look(scene);
    }
}
