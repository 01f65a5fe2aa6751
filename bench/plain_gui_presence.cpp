// What the board of rooms costs with five hundred of them occupied, and what the options cost to open.
// The socket and the clock are stand-ins; the windows are real.
#include "gui_office.h"

#include "controls/list/ReportControl.h"
#include "controls/look/OfficeLook.h"
#include "windows/presence/frmRoomStatus.h"

using namespace tessel;

namespace {

constexpr int kRooms = 500;

QByteArray occupiedRoom(int number) {
    RawPacket packet;
    packet.SID = QStringLiteral("%1XX000XXX0").arg(number, 4, 10, QChar(u'0'));
    packet.location = QStringLiteral("Room %1").arg(number);
    packet.code = QStringLiteral("XAN");
    packet.tagWord = QStringLiteral("%1:0").arg(number % 20 + 1);
    packet.note = number % 3 == 0 ? QStringLiteral("Note of room %1").arg(number) : QString();
    packet.presence = QStringList{
        {},
        {},
        QStringLiteral("-1"),
        QStringLiteral("Patient %1").arg(number),
        QString::number(number % 4 == 0 ? 30 + number % 10 : 0),
        {},
        QStringLiteral("8:%1:00 AM").arg(number % 60, 2, 10, QChar(u'0')),
        QStringLiteral("0"),
        {}}.join(QStringLiteral(".\u20AC."));
    return packet.bytes();
}

void repaint(ReportControl& list, const char* what) {
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const Stopwatch watch;
        list.viewport()->repaint();
        times.push_back(watch.ms());
    }
    std::printf("    %-52s median %.2f ms, worst %.2f ms\n", what, median(times), worst(times));
}

// An hour in which nothing happens. `list`: the board's, nullptr while there is none.
void idle(Office& office, ReportControl* list, const char* what) {
    constexpr int kMinutes = 60;
    constexpr int kMinuteMs = 60000;
    PaintWatch paint;
    if (list != nullptr) {
        list->viewport()->installEventFilter(&paint);
    }
    int paints = 0;
    const Stopwatch watch;
    for (int minute = 0; minute < kMinutes; ++minute) {
        paint.painted = false;
        office.clock.advance(kMinuteMs);
        QApplication::processEvents();
        paints += paint.painted ? 1 : 0;
    }
    std::printf("    %-52s %d repaints, %.2f ms a minute\n", what, paints, watch.ms() / kMinutes);
}

void board(Office& office) {
    office.station->admin.KA = true; // or the rooms would age out of the list while the hours pass
    for (int number = 0; number < kRooms; ++number) {
        office.receive(occupiedRoom(number));
    }
    std::printf("board of rooms\n");
    idle(office, nullptr, "an hour without a change and without a board");
    office.desktop.windows.show({WindowId::RoomStatus});
    auto& form = *static_cast<frmRoomStatus*>(office.desktop.windows.window(WindowId::RoomStatus));
    form.resize(900, 900);
    QApplication::processEvents();
    auto& list = *form.findChild<ReportControl*>();
    list.syncNow();
    std::printf("    %d rows\n", list.shownCount());
    repaint(list, "repaint of the visible rows");
    idle(office, &list, "an hour without a change, in its window");
    form.setLarge(true);
    QApplication::processEvents();
    repaint(list, "repaint of the large board");
    idle(office, &list, "an hour without a change, large: the times go on");
    form.setLarge(false);
    form.close();
}

void options(FormWindows& windows) {
    std::vector<double> times;
    for (int i = 0; i < 21; ++i) {
        const Stopwatch watch;
        windows.show({WindowId::Options});
        windows.window(WindowId::Options)->repaint();
        times.push_back(watch.ms());
        windows.window(WindowId::Options)->close();
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::printf("options, to the painted window: first %.1f ms, median %.1f ms, worst %.1f ms\n",
                times.front(), median(times), worst(times));
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    Office office;
    options(office.desktop.windows);
    board(office);
    office.desktop.windows.unloadForms();
    return 0;
}
