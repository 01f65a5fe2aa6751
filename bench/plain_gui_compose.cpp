// What it costs to write a message in a large office: opening the window over 2,000 locations, a key in
// its search box, and all of them chosen at once. Real windows over a station on stand-ins.
#include "support/RecordingHotKeys.h"
#include "support/RecordingSounds.h"
#include "support/World.h"
#include "windows/FormDesktop.h"
#include "windows/alerts/frmGroupMessage.h"

#include "controls/look/OfficeLook.h"
#include "engine/core/mod_FileTools.h"
#include "engine/ports/cWindowRegistry.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace tessel;

namespace {

constexpr int kRounds = 15;

class NoRegistry : public WindowRegistry {
public:
    void SaveFormPos(const QString&, QPoint) override {}
    std::optional<QPoint> GetFormPos(const QString&) const override { return std::nullopt; }
    void SaveFormSize(const QString&, QSize) override {}
    std::optional<QSize> GetFormSize(const QString&) const override { return std::nullopt; }
    void SetAutoStart(const QString&, bool) override {}
    bool autoStart() const override { return false; }
};

struct Office {
    QTemporaryDir home;
    VirtualClock clock;
    FakeNetwork network{clock};
    FakeLink link{network};
    NoRegistry registry;
    RecordingSounds sounds;
    RecordingHotKeys keys;
    FormDesktop desktop{registry};
    SystemFacts facts;
    std::unique_ptr<Station> station;

    Office() {
        facts.programFolder = home.filePath(QStringLiteral("program/"));
        facts.appData = home.filePath(QStringLiteral("data/"));
        facts.commonAppData = home.filePath(QStringLiteral("common/"));
        facts.documents = home.filePath(QStringLiteral("documents/"));
        network.keepSent = false;
        replaceFile(facts.appData + QStringLiteral("Tessel Status/user.cfg"),
                    "[User]\nFirstRun=0\nLOCATION=Front Desk\nTAG=2\n[Settings]\nUPD=0\n");
        station = std::make_unique<Station>(facts, desktop.ports(clock, link, sounds, keys), 1);
        desktop.setStation(*station);
        station->start();
        QApplication::processEvents();
        clock.advance(10000);
        QApplication::processEvents();
    }
};

double since(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void print(const char* what, std::vector<double> values) {
    const double first = values.front();
    std::sort(values.begin(), values.end());
    std::printf("%-34s median %6.2f ms, worst %6.2f ms (first %.2f)\n", what, values[values.size() / 2],
                values.back(), first);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    const int locations = argc > 1 ? std::atoi(argv[1]) : 2000;
    Office office;
    for (int i = 0; i < locations; ++i) {
        RawPacket packet;
        packet.SID = QStringLiteral("%1XX000XXX0").arg(i, 4, 10, QChar(u'0'));
        packet.location = QStringLiteral("Room %1").arg(i * 7 % locations);
        packet.code = QStringLiteral("XAN");
        packet.tagWord = QStringLiteral("%1:0").arg(i % 20 + 1);
        office.station->protocol.receive(packet.bytes());
    }
    QApplication::processEvents();

    std::vector<double> opened;
    std::vector<double> searched;
    std::vector<double> chosen;
    for (int round = 0; round < kRounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        frmGroupMessage form(*office.station);
        form.take({.window = WindowId::GroupMessage, .page = 1});
        form.show();
        QApplication::processEvents();
        opened.push_back(since(start));

        auto* const list = form.findChild<QListWidget*>(QStringLiteral("lstUsers"));
        auto* const search = form.findChild<QLineEdit*>(QStringLiteral("txtSearch"));
        if (list->count() != locations) {
            std::printf("NOT ALL LISTED: %d\n", list->count());
        }
        for (const char* const text : {"r", "ro", "roo", "room", "room 1", "room 12"}) {
            const auto key = std::chrono::steady_clock::now();
            search->setText(QLatin1String(text));
            QApplication::processEvents();
            searched.push_back(since(key));
        }
        search->clear();
        const auto all = std::chrono::steady_clock::now();
        list->selectAll();
        QApplication::processEvents();
        chosen.push_back(since(all));
    }
    std::printf("%d locations\n", locations);
    print("compose, opened and painted:", opened);
    print("a key in its search box:", searched);
    print("all of them chosen:", chosen);
    return 0;
}
