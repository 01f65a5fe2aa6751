// What the main window costs with two thousand locations in its list: a repaint, a key in the search
// box, and a storm of changes. The socket and the clock are stand-ins; the windows are real.
#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportControl.h"
#include "controls/look/OfficeLook.h"
#include "engine/ports/cWindowRegistry.h"
#include "support/World.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmMain.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace tessel;

namespace {

constexpr int kLocations = 2000;

class NoRegistry : public WindowRegistry {
public:
    void SaveFormPos(const QString&, QPoint) override {}
    std::optional<QPoint> GetFormPos(const QString&) const override { return std::nullopt; }
    void SaveFormSize(const QString&, QSize) override {}
    std::optional<QSize> GetFormSize(const QString&) const override { return QSize(900, 900); }
    void SetAutoStart(const QString&, bool) override {}
    bool autoStart() const override { return false; }
};

// Milliseconds of a call.
template <typename Call> double timed(Call call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void print(const char* what, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::printf("    %-58s median %.2f ms, worst %.2f ms\n", what, values[values.size() / 2], values.back());
}

// Tells whether a turn of the event loop painted the list.
class PaintWatch : public QObject {
public:
    bool painted = false;
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

QByteArray packetOf(int number, const char* code, int round) {
    RawPacket packet;
    packet.SID = QStringLiteral("%1XX000XXX0").arg(number, 4, 10, QChar(u'0'));
    packet.location = QStringLiteral("Room %1").arg(number);
    packet.code = QLatin1String(code);
    packet.tagWord = QStringLiteral("%1:0").arg(number % 40 + 1);
    packet.note = number % 3 == 0 ? QStringLiteral("Note of room %1").arg(number) : QString();
    const bool busy = (number + round) % 4 != 0;
    packet.presence = QStringList{
        busy ? QStringLiteral("Status %1").arg(round) : QString(),
        QStringLiteral("9:00:00 AM"),
        number % 5 == 0 ? QStringLiteral("-1") : QStringLiteral("0"),
        {},
        QStringLiteral("0"),
        {},
        {},
        QStringLiteral("0"),
        {}}.join(QStringLiteral(".\u20AC."));
    return packet.bytes();
}

void repaint(ReportView& list) {
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        times.push_back(timed([&] { list.viewport()->repaint(); }));
    }
    print("repaint of the visible rows", times);
}

void search(frmMain& form, ReportView& list) {
    auto& box = *form.findChild<PromptEdit*>();
    box.setFocus();
    std::vector<double> times;
    const auto type = [&](Qt::Key key, const QString& text) {
        QKeyEvent press(QEvent::KeyPress, key, {}, text);
        times.push_back(timed([&] {
            QApplication::sendEvent(&box, &press);
            list.syncNow();
            list.viewport()->repaint();
        }));
    };
    for (int round = 0; round < 20; ++round) {
        for (const char letter : {'r', 'o', 'o', 'm', ' ', '1'}) {
            type(Qt::Key(QChar(QLatin1Char(letter)).toUpper().unicode()), QString(QLatin1Char(letter)));
        }
        for (int i = 0; i < 6; ++i) {
            type(Qt::Key_Backspace, {});
        }
    }
    print("key in the search box, to the painted result", times);
}

void storm(World& world, ReportView& list, View view) {
    world[0]->shell.SetTabView(static_cast<int>(view));
    QApplication::processEvents();
    PaintWatch watch;
    list.viewport()->installEventFilter(&watch);
    std::vector<double> frames;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    int changes = 0;
    int round = 0;
    while (std::chrono::steady_clock::now() < end) {
        watch.painted = false;
        const double turn = timed([&] {
            for (int i = 0; i < 10; ++i) {
                const int number = changes++ * 7 % kLocations;
                round += number == 0 ? 1 : 0;
                world[0]->protocol.receive(packetOf(number, "XAS", round));
            }
            QApplication::processEvents();
        });
        if (watch.painted) {
            frames.push_back(turn);
        }
    }
    std::printf("    storm, %s: %d changes and %zu frames in 5 s\n", view == View::Home ? "Home" : "Status",
                changes, frames.size());
    if (!frames.empty()) {
        print("    turn of the event loop that paints", frames);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    Q_INIT_RESOURCE(tessel);
    World world(1);
    world.network.keepSent = false;
    NoRegistry registry;
    std::unique_ptr<frmMain> form;
    world[0].desktop.windows.onShowMain = [&] {
        form = std::make_unique<frmMain>(*world[0].station, registry);
        form->show();
    };
    world.settle();
    world[0]->settings.Settings_SNP.set(false);
    world[0]->settings.Settings_SNT.set(false);
    for (int number = 0; number < kLocations; ++number) {
        world[0]->protocol.receive(packetOf(number, "XAN", 0));
    }
    QApplication::processEvents();
    ReportControl& home = form->stack()->home();
    home.syncNow();
    std::printf("main window, %d rows\n", home.shownCount());
    repaint(home);
    search(*form, home);
    storm(world, home, View::Home);
    storm(world, form->stack()->list(View::Status), View::Status);
    return 0;
}
