// What messages cost with real windows: from a datagram to the painted row and popup, loading and saving
// the inbox, and a key in the search box.
#include "gui_office.h"

#include "controls/edit/PromptEdit.h"
#include "controls/list/CardControl.h"
#include "controls/look/OfficeLook.h"
#include "engine/core/mod_CodePage.h"
#include "engine/network/mod_Encode.h"
#include "windows/mainwindow/frmMain.h"

#include <QKeyEvent>

using namespace tessel;

namespace {

// Texts of everyday length, each of its own.
QString textOf(int number) {
    return QStringLiteral("Message %1: the patient of room %2 waits for the results of the lab. ")
               .arg(number)
               .arg(number % 40)
               .repeated(1 + number % 5) +
           QStringLiteral(":|:(9:00:00 AM) Front Desk : is room %1 free?\r\n").arg(number % 40);
}

void fill(Office& office, int count) {
    Inbox& inbox = office.station->inbox;
    inbox.Remove_All_Inbox_Messages();
    for (int number = 0; number < count; ++number) {
        inbox.Add_Message({number % 3 == 0 ? QStringLiteral("1") : QStringLiteral("0"), number % 7 == 0,
                           QStringLiteral("1AB%1").arg(number), QStringLiteral("Room %1").arg(number % 40),
                           QStringLiteral("123AB456CDE7"), textOf(number),
                           QStringLiteral("%1:04:05 PM").arg(number % 11 + 1),
                           QStringLiteral("3/%1/2026").arg(number % 28 + 1)},
                          true);
    }
    QApplication::processEvents();
}

CardControl& listOf(Office& office) {
    return *office.desktop.windows.mainWindow()->findChild<CardControl*>(QStringLiteral("rptMessages"));
}

void arrivals(Office& office) {
    CardControl& list = listOf(office);
    std::vector<double> returned;
    std::vector<double> painted;
    for (int i = 0; i < 300; ++i) {
        RawPacket packet = packetOf(1, "XATM");
        packet.body = toText(EncodeBody(toBytes(QStringList{
            QStringLiteral("0"), QStringLiteral("Front Desk:") + office.station->own.SID + ListMark,
            QStringLiteral("9XX%1").arg(i), textOf(i)}
                                                    .join(ValueMark))));
        const QByteArray bytes = packet.bytes();
        const Stopwatch watch;
        office.receive(bytes);
        returned.push_back(watch.ms());
        list.syncNow(); // the list's own wait for its next frame is no cost
        QApplication::processEvents();
        painted.push_back(watch.ms());
        office.clock.advance(50);
    }
    std::printf("message, datagram to return:            median %.2f ms, worst %.2f ms\n", median(returned),
                worst(returned));
    std::printf("message, datagram to row and popup:     median %.2f ms, worst %.2f ms (at most 2)%s\n",
                median(painted), worst(painted), list.shownCount() == 800 ? "" : " (NOT ALL SHOWN)");
}

void files(Office& office, int count, double mostLoading) {
    Inbox& inbox = office.station->inbox;
    office.station->settings.Messages_SAVE_CNT.set(count);
    fill(office, count);
    std::vector<double> loads;
    std::vector<double> saves;
    for (int round = 0; round < 9; ++round) {
        const Stopwatch save;
        inbox.Saveinbox();
        saves.push_back(save.ms());
        const Stopwatch load;
        inbox.Loadinbox();
        loads.push_back(load.ms());
    }
    std::printf("inbox of %4d: saved in %.2f ms%s, loaded in %.2f ms (at most %.0f)%s\n", count,
                median(saves), count == 500 ? " (at most 10)" : "", median(loads), mostLoading,
                inbox.rptMessages.count() == count ? "" : " (NOT ALL READ)");
}

void search(Office& office) {
    fill(office, 5000);
    CardControl& list = listOf(office);
    list.syncNow();
    auto& box = *office.desktop.windows.mainWindow()->findChild<PromptEdit*>();
    office.desktop.windows.mainWindow()->activateWindow();
    QApplication::processEvents();
    box.setFocus();
    if (!box.hasFocus()) {
        std::puts("(the search box has no focus)");
    }
    std::vector<double> times;
    const auto type = [&](int key, const QString& text) {
        QKeyEvent press(QEvent::KeyPress, key, {}, text);
        const Stopwatch watch;
        QApplication::sendEvent(&box, &press);
        list.viewport()->repaint();
        times.push_back(watch.ms());
    };
    for (int round = 0; round < 10; ++round) {
        for (const QChar letter : QStringLiteral("room 17 lab")) {
            type(letter.toUpper().unicode(), QString(letter));
        }
        for (int i = 0; i < 11; ++i) {
            type(Qt::Key_Backspace, {});
        }
    }
    std::printf(
        "a key in the search box, 5000 messages: median %.2f ms, worst %.2f ms, first %.2f ms (at most "
        "10)\n",
        median(times), worst(times), times.front());
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    Office office;
    office.station->shell.SetTabView(static_cast<int>(View::Inbox));
    fill(office, 500);
    arrivals(office);
    files(office, 500, 10);
    files(office, 5000, 100);
    search(office);
    return 0;
}
