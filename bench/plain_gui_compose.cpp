// What it costs to write a message in a large office: opening the window over 2,000 locations, a key in
// its search box, and all of them chosen at once. Real windows over a station on stand-ins.
#include "gui_office.h"
#include "windows/alerts/frmGroupMessage.h"

#include "controls/look/OfficeLook.h"

#include <QLineEdit>
#include <QListWidget>

#include <cstdlib>

using namespace tessel;

namespace {

constexpr int kRounds = 15;

void print(const char* what, const std::vector<double>& values) {
    std::printf("%-34s median %6.2f ms, worst %6.2f ms (first %.2f)\n", what, median(values), worst(values),
                values.front());
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    const int locations = argc > 1 ? std::atoi(argv[1]) : 2000;
    Office office;
    for (int i = 0; i < locations; ++i) {
        RawPacket packet = packetOf(i, "XAN");
        packet.location = QStringLiteral("Room %1").arg(i * 7 % locations);
        office.receive(packet.bytes());
    }
    QApplication::processEvents();

    std::vector<double> opened;
    std::vector<double> searched;
    std::vector<double> chosen;
    for (int round = 0; round < kRounds; ++round) {
        const Stopwatch opening;
        frmGroupMessage form(*office.station);
        form.take({.window = WindowId::GroupMessage, .page = 1});
        form.show();
        QApplication::processEvents();
        opened.push_back(opening.ms());

        auto* const list = form.findChild<QListWidget*>(QStringLiteral("lstUsers"));
        auto* const search = form.findChild<QLineEdit*>(QStringLiteral("txtSearch"));
        if (list->count() != locations) {
            std::printf("NOT ALL LISTED: %d\n", list->count());
        }
        for (const char* const text : {"r", "ro", "roo", "room", "room 1", "room 12"}) {
            const Stopwatch key;
            search->setText(QLatin1String(text));
            QApplication::processEvents();
            searched.push_back(key.ms());
        }
        search->clear();
        const Stopwatch all;
        list->selectAll();
        QApplication::processEvents();
        chosen.push_back(all.ms());
    }
    std::printf("%d locations\n", locations);
    print("compose, opened and painted:", opened);
    print("a key in its search box:", searched);
    print("all of them chosen:", chosen);
    return 0;
}
