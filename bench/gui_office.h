// A station with its real windows over stand-ins for socket and clock, for the benchmarks of windows.
#pragma once

#include "support/RecordingHotKeys.h"
#include "support/RecordingSounds.h"
#include "support/World.h"
#include "windows/FormDesktop.h"

#include "engine/core/mod_FileTools.h"
#include "engine/ports/cWindowRegistry.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace tessel {

class NoRegistry : public WindowRegistry {
public:
    void SaveFormPos(const QString&, QPoint) override {}
    std::optional<QPoint> GetFormPos(const QString&) const override { return std::nullopt; }
    void SaveFormSize(const QString&, QSize) override {}
    std::optional<QSize> GetFormSize(const QString&) const override { return std::nullopt; }
    void SetAutoStart(const QString&, bool) override {}
    bool autoStart() const override { return false; }
};

// Milliseconds from its making.
class Stopwatch {
public:
    double ms() const {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - m_start).count();
    }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

inline double worst(const std::vector<double>& values) {
    return *std::max_element(values.begin(), values.end());
}

// Tells whether a turn of the event loop painted the widget that it watches.
class PaintWatch : public QObject {
public:
    bool painted = false;
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

// A station with its real windows.
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
        facts.hostName = QStringLiteral("host");
        facts.userName = QStringLiteral("user");
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

    void receive(const QByteArray& datagram) { station->protocol.receive(datagram); }
};

inline RawPacket packetOf(int number, const char* code) {
    RawPacket packet;
    packet.SID = QStringLiteral("%1XX000XXX0").arg(number, 4, 10, QChar(u'0'));
    packet.location = QStringLiteral("Room %1").arg(number);
    packet.code = QLatin1String(code);
    packet.tagWord = QStringLiteral("%1:0").arg(number % 20 + 1);
    return packet;
}

} // namespace tessel
