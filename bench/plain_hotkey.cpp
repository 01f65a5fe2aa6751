// From a key of the whole desktop, pressed while another program has the keyboard, to the packet with the
// status on the wire: the real program on a real X server.
//
// plain_hotkey TIMES. Wants a display, and a private network namespace.
#include "program/Peer.h"
#include "program/StationProcess.h"

#include <QCoreApplication>
#include <QFile>

#include <xcb/xcbext.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>

using namespace tessel;
using Steady = std::chrono::steady_clock;

namespace {

const QByteArray kSID = "100AA100AAA7";
constexpr std::uint8_t kF1 = 67; // of the keyboard that Xvfb has
constexpr std::uint8_t kControl = 37;
constexpr double kPatience = 40;
// The station takes no second status within two seconds.
constexpr auto kLimit = std::chrono::milliseconds(2100);
// By then the windows show the change, and wait for nothing.
constexpr auto kSettle = std::chrono::milliseconds(500);
constexpr auto kLook = std::chrono::microseconds(100);

// The keyboard, as the XTEST extension of the X server moves it.
class Keyboard {
public:
    Keyboard() : m_connection(xcb_connect(nullptr, nullptr)) {
        constexpr std::string_view kName = "XTEST";
        auto* const reply = xcb_query_extension_reply(
            m_connection, xcb_query_extension(m_connection, kName.size(), kName.data()), nullptr);
        m_opcode = reply != nullptr && reply->present != 0 ? reply->major_opcode : 0;
        std::free(reply);
    }
    ~Keyboard() { xcb_disconnect(m_connection); }
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;

    bool isThere() const { return m_opcode != 0; }
    void down(std::uint8_t key) { move(XCB_KEY_PRESS, key); }
    void up(std::uint8_t key) { move(XCB_KEY_RELEASE, key); }

private:
    void move(std::uint8_t type, std::uint8_t key) {
        constexpr std::uint8_t kFakeInput = 2;
        std::array<std::uint8_t, 36> request{};
        request[0] = m_opcode;
        request[1] = kFakeInput;
        request[2] = request.size() / 4;
        request[4] = type;
        request[5] = key;
        // The library wants two places in front of the parts that it is given.
        std::array<iovec, 3> parts{};
        parts[2] = {request.data(), request.size()};
        const xcb_protocol_request_t protocol{1, nullptr, m_opcode, 1};
        xcb_send_request(m_connection, 0, &parts[2], &protocol);
        xcb_flush(m_connection);
    }

    xcb_connection_t* m_connection;
    std::uint8_t m_opcode = 0;
};

// Milliseconds from the key to the packet; negative when none comes.
double press(Keyboard& keyboard, Peer& air) {
    keyboard.down(kControl);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const Steady::time_point since = Steady::now();
    keyboard.down(kF1);
    double took = -1;
    while (took < 0 && Steady::now() - since < std::chrono::seconds(2)) {
        air.drain();
        const auto heard = air.of("XAS", kSID, since);
        if (!heard.empty()) {
            took = secondsBetween(since, heard.front().at) * 1000;
        }
        std::this_thread::sleep_for(kLook);
    }
    keyboard.up(kF1);
    keyboard.up(kControl);
    return took;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int times = argc == 2 ? std::atoi(argv[1]) : 0;
    if (times < 1 || times > 1000 || ::getenv("TESSEL_NETNS") == nullptr) {
        std::fprintf(stderr, "usage: scripts/in-netns xvfb-run plain_hotkey TIMES\n");
        return 2;
    }
    Peer air;
    Keyboard keyboard;
    StationProcess station(StationProcess::userFile("Desk", kSID, 5));
    QFile statuses(station.folder() + QStringLiteral("status.dat"));
    if (!keyboard.isThere() || !statuses.open(QIODevice::WriteOnly)) {
        std::printf("    no XTEST, or no folder\n");
        return 1;
    }
    statuses.write("[status]\nN0=Desk\nM0=At the desk\nH0=1\n");
    statuses.close();
    station.start();
    if (!waitUntil({&air}, kPatience, [&] { return !air.of("XAN", kSID).empty(); })) {
        std::printf("    the program did not come online\n");
        return 1;
    }
    std::vector<double> took;
    for (int i = 0; i < times; ++i) {
        // Twice: the second press takes the status back.
        for (int turn = 0; turn < 2; ++turn) {
            const double one = press(keyboard, air);
            if (one < 0) {
                std::printf("    a key was pressed and no status came\n");
                return 1;
            }
            took.push_back(one);
            std::this_thread::sleep_for(kSettle);
        }
        std::this_thread::sleep_for(kLimit);
    }
    std::sort(took.begin(), took.end());
    std::printf("    hot key to XAS on the wire, %zu presses: median %.2f ms, p90 %.2f ms, worst %.2f ms\n",
                took.size(), took[took.size() / 2], took[took.size() * 9 / 10], took.back());
    return 0;
}
