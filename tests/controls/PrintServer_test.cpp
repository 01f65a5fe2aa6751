// A print server that hangs must not hold up the windows of a program that rings for patients.
#include "controls/print/PrintServer.h"

#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace tessel;

namespace {

constexpr int kLongMs = 30000; // longer than a question is waited for here

// What comes of a question; nothing while there is no answer after all.
std::optional<bool> asked(const PrintServerAddress& address, int patienceMs) {
    std::optional<bool> quick;
    QObject context;
    askPrintServer(address, patienceMs, &context, [&quick](bool answers) { quick = answers; });
    for (int turn = 0; turn < 100 && !quick; ++turn) {
        QTest::qWait(20);
    }
    return quick;
}

} // namespace

TEST(PrintServer, IsKnownByItsAnswerOrItsAbsence) {
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath("cups.sock").toLocal8Bit();
    EXPECT_EQ(asked({path}, kLongMs), true) << "nobody there";
    EXPECT_EQ(asked({"127.0.0.1", 1}, kLongMs), true) << "refused";

    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(server, 4), 0);
    EXPECT_EQ(asked({path}, 100), false) << "taken and never answered";

    QSocketNotifier visitors(server, QSocketNotifier::Read);
    QObject::connect(&visitors, &QSocketNotifier::activated, [server] {
        constexpr char kAnswer[] = "HTTP/1.1 200 OK\r\n\r\n";
        const int visitor = ::accept(server, nullptr, nullptr);
        ::send(visitor, kAnswer, sizeof kAnswer - 1, MSG_NOSIGNAL); // the first one has gone again
    });
    EXPECT_EQ(asked({path}, kLongMs), true);
    visitors.setEnabled(false);
    ::close(server);
}
