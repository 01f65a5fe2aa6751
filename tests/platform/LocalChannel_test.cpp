#include "platform/LocalChannel.h"
#include "waiting.h"

#include "engine/ports/cSystemFacts.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tessel;

namespace {

class LocalChannelTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_runtime.isValid());
        m_before = qgetenv("XDG_RUNTIME_DIR");
        useRuntime(m_runtime.path());
        facts.appData = QStringLiteral("/home/someone/.local/share/");
    }
    void TearDown() override { qputenv("XDG_RUNTIME_DIR", m_before); }

    static void useRuntime(const QString& path) { qputenv("XDG_RUNTIME_DIR", path.toLocal8Bit()); }

    QString socketPath() const {
        const QDir folder(m_runtime.path());
        const QStringList found = folder.entryList({QStringLiteral("tessel-*")}, QDir::System);
        return found.size() == 1 ? folder.filePath(found.first()) : QString();
    }

    // What another process would get; this one serves meanwhile.
    std::optional<QString> askFromOutside(const QString& request, int timeoutMs = kTooLongMs) const {
        std::optional<QString> answer;
        const std::unique_ptr<QThread> client(
            QThread::create([&] { answer = LocalChannel(facts).ask(request, timeoutMs); }));
        client->start();
        EXPECT_TRUE(waitUntil([&] { return client->isFinished(); }));
        client->wait();
        return answer;
    }

    QTemporaryDir m_runtime;
    QByteArray m_before;
    SystemFacts facts;
};

// Runs `work` in a process of its own that dies on the spot, as in a crash. True if `work` was true.
template <typename Work> bool crashAfter(Work&& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

// Two stations in one data folder would overwrite each other's files.
TEST_F(LocalChannelTest, OneStationADataFolderAndTheSecondReachesTheFirst) {
    LocalChannel first(facts);
    ASSERT_TRUE(first.claim());
    QStringList requests;
    first.serve([&](const QString& request) {
        requests += request;
        return QStringLiteral("h\u00E9llo ") + request;
    });
    LocalChannel second(facts);
    EXPECT_FALSE(second.claim());
    EXPECT_EQ(askFromOutside(LocalChannel::kBringUp), QStringLiteral("h\u00E9llo bring up"));
    EXPECT_EQ(askFromOutside(QString()), QStringLiteral("h\u00E9llo "));
    EXPECT_EQ(askFromOutside(QStringLiteral(" /db:hi  ")), QStringLiteral("h\u00E9llo  /db:hi  "));
    EXPECT_EQ(requests, (QStringList{LocalChannel::kBringUp, QString(), " /db:hi  "})) << "blanks are text";

    SystemFacts other = facts;
    other.appData = QStringLiteral("/home/somebody/.local/share/");
    LocalChannel elsewhere(other);
    EXPECT_TRUE(elsewhere.claim()) << "another data folder is another station";
}

TEST_F(LocalChannelTest, AnAnswerOfMegabytesComesWholeAndOneThatRunsTheLoopToo) {
    LocalChannel station(facts);
    ASSERT_TRUE(station.claim());
    const QString large(3 << 20, u'x');
    station.serve([&](const QString&) {
        letPass(50);
        return large;
    });
    EXPECT_EQ(askFromOutside(QStringLiteral("all")), large);
}

// After a crash the user must be able to start the program again, without cleaning up first.
TEST_F(LocalChannelTest, WhatACrashLeavesKeepsNobodyOut) {
    ASSERT_TRUE(crashAfter([this] {
        static LocalChannel station(facts); // its destructor must not tidy up
        return station.claim();
    }));
    ASSERT_FALSE(socketPath().isEmpty()) << "the crash left no socket; it shows nothing";
    EXPECT_EQ(LocalChannel(facts).ask(QStringLiteral("x"), 2000), std::nullopt);
    LocalChannel next(facts);
    ASSERT_TRUE(next.claim());
    next.serve([](const QString&) { return QStringLiteral("alive"); });
    EXPECT_EQ(askFromOutside(QStringLiteral("x")), QStringLiteral("alive"));
}

TEST_F(LocalChannelTest, BadClientsAreDroppedAndOthersServed) {
    LocalChannel station(facts);
    ASSERT_TRUE(station.claim());
    QStringList requests;
    station.serve([&](const QString& request) {
        requests += request;
        return QStringLiteral("ok");
    });
    QLocalSocket endless;
    QLocalSocket half;
    QLocalSocket binary;
    QLocalSocket hasty;
    for (QLocalSocket* const socket : {&endless, &half, &binary, &hasty}) {
        socket->connectToServer(socketPath());
        ASSERT_TRUE(socket->waitForConnected(kTooLongMs));
    }
    half.write("half a requ");
    endless.write(QByteArray(100000, 'x'));
    binary.write(QByteArray("\xFF\xFE\0\x01", 4) + '\n');
    hasty.write("gone before the answer\n");
    hasty.flush();
    hasty.abort();
    EXPECT_TRUE(waitUntil([&] { return endless.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_TRUE(waitUntil([&] { return binary.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(askFromOutside(QStringLiteral("well made")), QStringLiteral("ok"));
    EXPECT_EQ(requests.count(QStringLiteral("well made")), 1);
    EXPECT_TRUE(requests.filter(QStringLiteral("half")).isEmpty());
    EXPECT_TRUE(requests.filter(QStringLiteral("xxx")).isEmpty());
    EXPECT_TRUE(waitUntil([&] { return half.state() == QLocalSocket::UnconnectedState; })) << "kept for ever";
}

// A script that runs wild must not cost the user the way back to the window, nor the station its
// descriptors.
TEST_F(LocalChannelTest, ManyHeldConnectionsAndNoDescriptorsLeft) {
    LocalChannel station(facts);
    ASSERT_TRUE(station.claim());
    station.serve([](const QString&) { return QStringLiteral("ok"); });
    const auto open = [] {
        return QDir(QStringLiteral("/proc/self/fd"))
            .entryList(QDir::NoDotAndDotDot | QDir::System | QDir::Files)
            .size();
    };
    const auto before = open();
    std::vector<std::unique_ptr<QLocalSocket>> held;
    for (int i = 0; i < 200; ++i) {
        held.push_back(std::make_unique<QLocalSocket>());
        held.back()->connectToServer(socketPath());
        ASSERT_TRUE(held.back()->waitForConnected(kTooLongMs));
        letPass(1);
    }
    EXPECT_EQ(askFromOutside(QStringLiteral("x")), QStringLiteral("ok"));
    EXPECT_LT(open() - before, 200 + 40);
    held.clear();

    // The connection waits in the system until it is accepted, and that fails.
    QLocalSocket waiting;
    rlimit usual{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
    letPass();
    waiting.connectToServer(socketPath());
    rlimit none = usual;
    none.rlim_cur = 3;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    letPass();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_TRUE(socketPath().isEmpty()) << "the accept did not fail: this shows nothing";
    EXPECT_TRUE(waitUntil([this] { return !socketPath().isEmpty(); }));
    EXPECT_EQ(askFromOutside(QStringLiteral("x")), QStringLiteral("ok"));
}

// The channel takes orders: no other user of the machine may give any.
TEST_F(LocalChannelTest, OtherUsersHaveNoWayIn) {
    LocalChannel station(facts);
    ASSERT_TRUE(station.claim());
    struct stat found {};
    ASSERT_EQ(::stat(socketPath().toLocal8Bit().constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 077U, 0U);

    // A run-time folder that others may enter is not used; the name below /tmp is the user's own.
    QTemporaryDir open;
    ASSERT_EQ(::chmod(open.path().toLocal8Bit().constData(), 0755), 0);
    useRuntime(open.path());
    LocalChannel careful(facts);
    EXPECT_TRUE(careful.claim());
    EXPECT_TRUE(QDir(open.path()).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot));
    const QByteArray fallback = "/tmp/tessel-status-" + QByteArray::number(::getuid());
    ASSERT_EQ(::stat(fallback.constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 077U, 0U);
}

// The system's limit for the path of a socket is close to what run-time folders can be.
TEST_F(LocalChannelTest, ARuntimeFolderOfAnyLengthGivesAChannel) {
    for (qsizetype length = 70; length <= 110; ++length) {
        QString path = m_runtime.path() + u'/';
        path += QString(length - path.size(), u'd');
        ASSERT_EQ(::mkdir(path.toLocal8Bit().constData(), 0700), 0);
        useRuntime(path);
        LocalChannel station(facts);
        ASSERT_TRUE(station.claim());
        station.serve([](const QString&) { return QStringLiteral("here"); });
        ASSERT_EQ(askFromOutside(QStringLiteral("x")), QStringLiteral("here")) << length;
    }
}
