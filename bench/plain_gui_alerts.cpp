// What alerts, the history and status changes cost with real windows: from a packet's bytes to the
// handler's return, to the painted popup, and through the lists. The socket and the clock are stand-ins.
#include "gui_office.h"

#include "controls/look/OfficeLook.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_QuotedRecords.h"
#include "engine/network/mod_Encode.h"
#include "windows/mainwindow/frmMain.h"

using namespace tessel;

namespace {

void alerts(Office& office) {
    std::vector<double> returned;
    std::vector<double> painted;
    for (int i = 0; i < 300; ++i) {
        RawPacket packet = packetOf(1, "XAD1");
        packet.body = toText(EncodeBody(
            toBytes(office.station->own.SID + ValueMark + QStringLiteral("Please come %1").arg(i))));
        const QByteArray bytes = packet.bytes();
        const Stopwatch watch;
        office.receive(bytes);
        returned.push_back(watch.ms());
        QApplication::processEvents();
        painted.push_back(watch.ms());
        office.clock.advance(50);
    }
    std::printf("alert, datagram to return:    median %.2f ms, worst %.2f ms (first %.2f)\n",
                median(returned), worst(returned), returned.front());
    std::printf("alert, datagram to painted:   median %.2f ms, worst %.2f ms (first %.2f)\n", median(painted),
                worst(painted), painted.front());
}

void history(Office& office) {
    NotificationHistory& history = office.station->history;
    const QString path = office.station->folders.dataFile(QStringLiteral("recents.dat"));
    double former = 0;
    for (const int count : {120, 1200, 12000}) {
        QStringList records;
        for (int i = 0; i < count; ++i) {
            records += QStringList{QStringLiteral("0"),
                                   QStringLiteral("0"),
                                   QStringLiteral("DoorBell"),
                                   QStringLiteral("Room %1").arg(i % 40),
                                   QStringLiteral("Please come to room %1").arg(i),
                                   QStringLiteral("3:04:05 PM"),
                                   QStringLiteral("3/%1/2026").arg(i % 28 + 1),
                                   QStringLiteral("123AB456CDE7")}
                           .join(ValueMark);
        }
        office.station->settings.Recents_SAVE_CNT.set(count);
        std::vector<double> loads;
        std::vector<double> saves;
        for (int round = 0; round < 7; ++round) {
            replaceFile(path, writeQuotedRecords(records));
            const Stopwatch load;
            history.LoadRecents();
            loads.push_back(load.ms());
            const Stopwatch save;
            history.SaveRecents();
            saves.push_back(save.ms());
        }
        std::printf("history of %5d records:      loaded in %.2f ms, written in %.2f ms%s\n", count,
                    median(loads), median(saves),
                    history.rptNotifications.count() == count ? "" : " (NOT ALL READ)");
        if (former > 0) {
            std::printf("    ten times the records:    %.1f times the loading\n", median(loads) / former);
        }
        former = median(loads);
    }
}

void statusStorm(Office& office) {
    constexpr int kLocations = 1000;
    for (int i = 0; i < kLocations; ++i) {
        office.receive(packetOf(i, "XAN").bytes());
    }
    office.station->shell.SetTabView(static_cast<int>(View::Status));
    office.station->settings.Settings_SNP.set(false);
    office.station->settings.Settings_SNT.set(false);
    QApplication::processEvents();
    std::vector<QByteArray> changes;
    for (int i = 0; i < kLocations; ++i) {
        RawPacket packet = packetOf(i * 7 % kLocations, "XAS");
        packet.presence = QStringLiteral("Status %1").arg(i) + ValueMark + QStringLiteral("9:00:00 AM") +
                          ValueMark + QStringLiteral("0") + ValueMark + ValueMark + QStringLiteral("0") +
                          ValueMark + ValueMark + ValueMark + QStringLiteral("0") + ValueMark;
        changes.push_back(packet.bytes());
    }
    const Stopwatch watch;
    for (const QByteArray& change : changes) {
        office.receive(change);
        QApplication::processEvents();
    }
    const double all = watch.ms();
    office.station->views.rptStatusView.bringUpToDate();
    std::printf(
        "status change, %d locations, Status tab in front, windows turning after each: %.3f ms each%s\n",
        kLocations, all / kLocations,
        office.station->views.rptStatusView.count() == kLocations ? "" : " (NOT ALL SHOWN)");
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    Office office;
    alerts(office);
    history(office);
    statusStorm(office);
    return 0;
}
