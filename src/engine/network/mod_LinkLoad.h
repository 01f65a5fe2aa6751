// What happens when more arrives than can be handled.
#pragma once

#include "engine/ports/cLink.h"

#include <QObject>

#include <cstdint>
#include <vector>

namespace tessel {

class Clock;
class NetworkProtocol;
class cErrorLog;

// A station that cannot keep up loses what matters least: nothing of the next keep-alive's worth, but no
// alert of somebody whom it knows. What is given up counts as received all the same, and error.txt says
// so, once a minute at most.
class LinkLoad : public QObject {
    Q_OBJECT
public:
    LinkLoad(Link& link, NetworkProtocol& protocol, cErrorLog& log, const Clock& clock);

    // A flag for each datagram that goes, of `bytes` at least in all. Among those that matter alike, the
    // machines that sent most lose first, of theirs the locations that sent most, and of theirs the
    // oldest: who invents locations takes from himself.
    static std::vector<bool> sift(const std::vector<WaitingDatagram>& waiting, qsizetype bytes);

private:
    struct Kind {
        const char* code;
        const char* text;
        std::uint64_t count = 0;
        std::int64_t toldAt = -1;
    };
    void tell(Kind& kind, std::uint64_t more);

    NetworkProtocol& m_protocol;
    cErrorLog& m_log;
    const Clock& m_clock;
    Kind m_letGo{"NLG", "Datagrams let go, since more came than could be handled: "};
    Kind m_lost{"NLD", "Datagrams that the system gave up before they were read: "};
};

} // namespace tessel
