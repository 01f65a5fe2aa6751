// What the main window costs with two thousand locations in its list: a repaint, a key in the search
// box, and a storm of changes. The socket and the clock are stand-ins; the windows are real.
#include "gui_office.h"

#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportControl.h"
#include "controls/look/OfficeLook.h"
#include "windows/mainwindow/ViewStack.h"
#include "windows/mainwindow/frmMain.h"

#include <QKeyEvent>

using namespace tessel;

namespace {

constexpr int kLocations = 2000;

// Milliseconds of a call.
template <typename Call> double timed(Call call) {
    const Stopwatch watch;
    call();
    return watch.ms();
}

void print(const char* what, const std::vector<double>& values) {
    std::printf("    %-58s median %.2f ms, worst %.2f ms\n", what, median(values), worst(values));
}

QByteArray statusOf(int number, const char* code, int round) {
    RawPacket packet = packetOf(number, code);
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

void storm(Office& office, ReportView& list, View view) {
    office.station->shell.SetTabView(static_cast<int>(view));
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
                office.receive(statusOf(number, "XAS", round));
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
    Office office;
    auto& form = *qobject_cast<frmMain*>(office.desktop.windows.mainWindow());
    form.resize(900, 900);
    Settings& settings = office.station->settings;
    settings.Settings_SNP.set(false);
    settings.Settings_SNT.set(false);
    for (int number = 0; number < kLocations; ++number) {
        office.receive(statusOf(number, "XAN", 0));
    }
    QApplication::processEvents();
    ReportControl& home = form.stack()->home();
    home.syncNow();
    std::printf("main window, %d rows\n", home.shownCount());
    repaint(home);
    search(form, home);
    storm(office, home, View::Home);
    storm(office, form.stack()->list(View::Status), View::Status);
    return 0;
}
