// Sounds without a device to hear them: what is played, that nothing waits for it, and that no file
// can hurt.
#include "platform/SoundPlayer.h"
#include "programs/tslsound/WaveSound.h"
#include "waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <string>
#include <sys/stat.h>

using namespace tessel;
using testing::ElementsAre;

namespace {

// A number with its lowest byte first.
std::string bytes(std::uint64_t value, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
    return text;
}

std::string part(const std::string& name, const std::string& content, std::int64_t size = -1) {
    return name + bytes(size < 0 ? content.size() : static_cast<std::uint64_t>(size), 4) + content +
           std::string(content.size() % 2, '\0');
}

// A wave file of 22,050 frames a second.
std::string wave(unsigned channels, unsigned bits, const std::string& data, std::int64_t claimed = -1) {
    const unsigned frame = channels * bits / 8;
    return "RIFF" + bytes(36 + data.size(), 4) + "WAVE" +
           part("fmt ", bytes(1, 2) + bytes(channels, 2) + bytes(22050, 4) + bytes(22050 * frame, 4) +
                            bytes(frame, 2) + bytes(bits, 2)) +
           part("LIST", "odd") + part("data", data, claimed);
}

std::vector<std::int16_t> samples(const std::string& content) {
    QTemporaryFile file;
    if (!file.open() || file.write(content.data(), static_cast<qint64>(content.size())) < 0 ||
        !file.flush()) {
        ADD_FAILURE() << "no file";
    }
    return readSound(qPrintable(file.fileName())).value_or(PcmSound{}).samples;
}

const std::string kTwoSamples = bytes(1000, 2) + bytes(0xFFFF, 2); // 1000 and -1

} // namespace

TEST(WaveSound, FilesThatPeopleHaveAndTornOnes) {
    EXPECT_THAT(samples(wave(1, 16, kTwoSamples)), ElementsAre(1000, -1));
    EXPECT_THAT(samples(wave(1, 8, std::string("\x80\xFF", 2))), ElementsAre(0, 32512));
    EXPECT_THAT(samples(wave(6, 16, kTwoSamples + std::string(8, 'x'))), ElementsAre(1000, -1))
        << "of more channels the first two";
    EXPECT_THAT(samples(wave(1, 16, kTwoSamples, 0xFFFFFFFF)), ElementsAre(1000, -1));
    const std::string whole = wave(1, 16, kTwoSamples);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_LE(samples(whole.substr(0, size)).size(), 1U) << size;
    }
    EXPECT_EQ(samples(wave(1, 8, std::string(22050 * 40, 'x'))).size() / 22050, 30U) << "an alert ends";
}

// The tones that come with the program, as they stand beside it.
TEST(WaveSound, TonesOfTheProgram) {
    const QDir folder(QCoreApplication::applicationDirPath() + "/Sounds");
    QStringList names{"DoorbellOne", "DoorbellAll", "Phone", "Urgent", "SingleMsg",
                      "AllMsg",      "Status",      "Sent",  "Startup"};
    for (int number = 1; number <= 12; ++number) {
        names += QStringLiteral("Favorites/%1A").arg(number);
    }
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const auto sound = readSound(qPrintable(folder.filePath(name + ".wav")));
        ASSERT_TRUE(sound.has_value());
        EXPECT_GE(sound->milliseconds(), 299);
        EXPECT_LE(sound->milliseconds(), 2000);
        EXPECT_GT(*std::max_element(sound->samples.begin(), sound->samples.end()), 6000) << "can be heard";
    }
}

namespace {

// A player in the place of the true one. It writes down its number and what it is to play.
class StandInPlayer : public testing::Test {
protected:
    struct Call {
        pid_t process;
        QStringList arguments;
    };

    void SetUp() override {
        QFile script(program);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        // One write a call, so that no reader sees half of one.
        script.write("#!/bin/sh\nline=$$\nfor word; do line=\"$line|$word\"; done\n"
                     "echo \"$line\" >> '" +
                     log.toUtf8() + "'\n[ \"$2\" = short ] || exec sleep 20\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
    std::vector<Call> calls() const {
        QFile file(log);
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        std::vector<Call> calls;
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList words = line.split(u'|');
            calls.push_back({words.first().toInt(), words.mid(1)});
        }
        return calls;
    }
    // Ended, and seen to have ended: nothing of it is left.
    static bool isGone(pid_t process) { return ::kill(process, 0) != 0; }

    QTemporaryDir folder;
    const QString program = folder.filePath("a player");
    const QString log = folder.filePath("log");
    SoundPlayer player{program};
};

} // namespace

TEST_F(StandInPlayer, NewSoundCutsOffTheOld) {
    player.play("/some folder/D\u00FCr -one\".wav");
    ASSERT_TRUE(waitUntil([this] { return calls().size() == 1; }));
    EXPECT_THAT(calls()[0].arguments, ElementsAre("play", "/some folder/D\u00FCr -one\".wav"));
    EXPECT_FALSE(isGone(calls()[0].process));

    player.beep(850, 650);
    ASSERT_TRUE(waitUntil([this] { return calls().size() == 2; }));
    EXPECT_THAT(calls()[1].arguments, ElementsAre("beep", "850", "650"));
    EXPECT_TRUE(waitUntil([this] { return isGone(calls()[0].process); }));
    EXPECT_FALSE(isGone(calls()[1].process));
}

TEST_F(StandInPlayer, FloodOfSoundsIsOneSound) {
    for (int i = 0; i < 10000; ++i) {
        player.play(QStringLiteral("tone %1").arg(i));
    }
    ASSERT_TRUE(waitUntil([this] { return calls().size() == 1; }));
    EXPECT_THAT(calls()[0].arguments, ElementsAre("play", "tone 9999"));
    letPass();
    EXPECT_EQ(calls().size(), 1U);
}

namespace {

const QString& truePlayer() {
    static const QString path = QCoreApplication::applicationDirPath() + "/tslsound";
    return path;
}

} // namespace

TEST(SoundPlayer, FilesThatAreNoWaveFiles) {
    ASSERT_TRUE(QFile::exists(truePlayer()));
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(name); };
    ASSERT_EQ(::mkfifo(qPrintable(path("pipe.wav")), 0600), 0);
    ASSERT_TRUE(QFile::link("/dev/zero", path("endless.wav")));
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder.wav"));
    QFile huge(path("huge.wav"));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{2} << 30));
    QFile empty(path("empty.wav"));
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly));

    qputenv("PULSE_SERVER", "unix:/nonexistent");
    for (const char* name : {"pipe.wav", "endless.wav", "folder.wav", "huge.wav", "empty.wav", "none.wav"}) {
        QProcess process;
        process.start(truePlayer(), {"play", path(name)});
        ASSERT_TRUE(process.waitForFinished(10000)) << name;
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << name;
        EXPECT_EQ(process.exitCode(), 1) << name;
        EXPECT_EQ(process.readAllStandardError(), "tslsound: nothing that can be played\n") << name;
    }
    qunsetenv("PULSE_SERVER");
}
