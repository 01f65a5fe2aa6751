// The network groups. Stations of different groups do not hear each other.
#pragma once

#include <QString>

#include <array>

namespace tessel {

struct NetworkGroup {
    const char* name;
    int port;
    const char* address; // to join and to send to
    int timeToLive;
    bool overridable; // whether net.cfg may give other values
};

inline constexpr std::array kNetworkGroups{
    NetworkGroup{"Default Network", 5748, "232.36.32.36", 7, true},
    NetworkGroup{"Network Group 1", 18110, "239.1.1.39", 7, true},
    NetworkGroup{"Network Group 2", 29110, "239.255.1.1", 7, true},
    NetworkGroup{"Network Group 3", 5748, "224.0.1.200", 1, false},
    NetworkGroup{"Network Group 4", 59878, "234.0.0.100", 1, false},
};

// The group that the value of `net` selects: any value other than 1 to 4 is row 0.
inline const NetworkGroup& networkGroup(const QString& net) {
    for (std::size_t row = 1; row < kNetworkGroups.size(); ++row) {
        if (net.trimmed() == QString::number(row)) {
            return kNetworkGroups[row];
        }
    }
    return kNetworkGroups[0];
}

} // namespace tessel
