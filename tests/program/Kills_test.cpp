// The program killed under alerts, again and again: what a user saw ring stands in the history of the
// next run, once.
#include "Peer.h"
#include "StationProcess.h"
#include "engine/core/mod_QuotedRecords.h"
#include "support/World.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <map>
#include <memory>
#include <random>

using namespace tessel;

namespace {

constexpr double kSlow = 60;
constexpr double kBetweenAlerts = 0.02;
const QString kMark = QStringLiteral(".\u20AC.");

// A longer trial asks for TESSEL_KILL_ROUNDS rounds of TESSEL_KILL_STATIONS kills.
int fromEnvironment(const char* name, int usual, int most) {
    const int wanted = qEnvironmentVariableIntValue(name);
    return wanted > 0 ? std::min(wanted, most) : usual;
}

struct Victim {
    QByteArray SID;
    std::unique_ptr<StationProcess> process;
    std::vector<int> shown;
    double killAt = 0;
    bool gently = false; // it is told to end, and killed before it has
    bool alive = false;
};

QByteArray packet(const QString& code, const QByteArray& target, const QString& text) {
    RawPacket made;
    made.code = code;
    made.body = QString::fromLatin1(target) + kMark + text;
    return made.bytes();
}

QString numbered(const char* word, int number) {
    return QLatin1String(word) + QString::number(number).rightJustified(7, u'0');
}

class Kills : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(qgetenv("TESSEL_NETNS"), "1") << "to be run by scripts/in-netns alone";
        const int count = fromEnvironment("TESSEL_KILL_STATIONS", 3, 10);
        for (int i = 0; i < count; ++i) {
            Victim& victim = victims.emplace_back();
            victim.SID = "300KK300KKK" + QByteArray::number(i);
            victim.process = std::make_unique<StationProcess>(
                StationProcess::userFile("Victim", victim.SID, 41, "[Recents]\r\nSAVE_CNT=20000\r\n"));
        }
    }

    bool startAll() {
        const Moment before = std::chrono::steady_clock::now();
        for (Victim& victim : victims) {
            victim.process->start();
            victim.alive = true;
        }
        return waitUntil({&air}, kSlow, [&] {
            return std::all_of(victims.begin(), victims.end(), [&](const Victim& victim) {
                return !air.of("XAN", victim.SID, before).empty();
            });
        });
    }

    // The number of the last alert that the station has dealt with: it answers the order behind it.
    int lastShown(const Victim& victim, Moment since) const {
        int last = 0;
        for (const HeardPacket& heard : air.of("XALNU", victim.SID, since)) {
            last = std::max(last, heard.field(6).mid(4).toInt());
        }
        return last;
    }

    void round() {
        ASSERT_TRUE(startAll());
        const Moment begin = std::chrono::steady_clock::now();
        const int first = m_number + 1;
        std::uniform_real_distribution<double> unit(0, 1);
        for (Victim& victim : victims) {
            victim.killAt = 0.3 + 2 * unit(m_random);
            victim.gently = unit(m_random) < 0.5;
        }
        const auto time = [begin] { return secondsBetween(begin, std::chrono::steady_clock::now()); };
        const auto isAlive = [](const Victim& victim) { return victim.alive; };
        while (time() < kSlow && std::any_of(victims.begin(), victims.end(), isAlive)) {
            ++m_number;
            for (Victim& victim : victims) {
                if (!victim.alive) {
                    continue;
                }
                if (time() < victim.killAt) {
                    air.send(packet("XAD1", victim.SID, numbered("alert ", m_number)));
                    air.send(packet("XALN", victim.SID, numbered("note", m_number)));
                } else if (victim.gently) {
                    // The goodbye takes a second; the files are written behind it.
                    victim.process->signal(SIGTERM);
                    victim.gently = false;
                    victim.killAt = time() + 1 + 0.1 * unit(m_random);
                } else {
                    victim.process->signal(SIGKILL);
                    victim.process->waitEnd(kSlow);
                    victim.alive = false;
                }
            }
            waitUntil({&air}, kBetweenAlerts, [] { return false; });
        }
        for (Victim& victim : victims) {
            const int last = lastShown(victim, begin);
            for (int number = first; number <= last; ++number) {
                victim.shown.push_back(number);
            }
        }
    }

    Peer air;
    std::vector<Victim> victims;
    int m_number = 0;
    std::mt19937 m_random{std::random_device{}()};
};

} // namespace

TEST_F(Kills, WhatWasShownIsInTheHistoryOnce) {
    ASSERT_TRUE(air.isOpen());
    const int rounds = fromEnvironment("TESSEL_KILL_ROUNDS", 2, 100);
    for (int i = 0; i < rounds; ++i) {
        ASSERT_NO_FATAL_FAILURE(round());
    }
    ASSERT_TRUE(startAll());
    std::size_t shown = 0;
    for (Victim& victim : victims) {
        victim.process->signal(SIGTERM);
        ASSERT_EQ(victim.process->waitEnd(kSlow), 0);
        std::map<int, int> kept;
        for (const QString& record :
             readQuotedRecords(victim.process->bytes("recents.dat"), 1 << 20).records) {
            ++kept[record.section(kMark, 4, 4).mid(6).toInt()];
        }
        for (const int number : victim.shown) {
            EXPECT_EQ(kept[number], 1) << "alert " << number << " of " << victim.SID.toStdString();
        }
        for (const auto& [number, times] : kept) {
            EXPECT_LE(times, 1) << "alert " << number << " of " << victim.SID.toStdString();
        }
        EXPECT_GT(victim.shown.size(), 0U);
        EXPECT_EQ(victim.process->read("User", "SID").toLatin1(), victim.SID) << "user.cfg came through, too";
        shown += victim.shown.size();
    }
    std::printf("%zu kills under %zu alerts that were shown\n",
                static_cast<std::size_t>(rounds) * victims.size(), shown);
}
