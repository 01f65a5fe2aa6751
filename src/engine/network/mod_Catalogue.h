// The catalogue of packets: each code once, in the order in which codes are compared.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessel {

enum class Code : std::uint8_t {
    XRKA,
    XAN,
    XANR,
    XD,
    XAS,
    XALNU,
    XALU,
    XALS,
    XALSN,
    XALN,
    XAST,
    XASTR,
    XAD0,
    XAD1,
    XAD1T,
    XAS0,
    XAS1,
    XAS2,
    XAP,
    XAPT,
    XAUM,
    XAUMT,
    XATM,
    XATE,
    XATG,
    ZA00,
    ZA01,
    ZA05,
    ZA06,
    ZS01,
    ZS02,
    ZAAS,
    ZAGS
};

// What must hold, beyond the frame being parsed, for a packet to act.
enum class Filter : std::uint8_t {
    OwnToo,       // no test: the station's own packet acts on itself
    NotOwn,       // from another station
    BodyIsSID,    // from another station, and the body is the own SID
    TargetIsSID,  // from another station, and value 0 of the body is the own SID
    TargetIsTag,  // from another station, and value 0 of the body equals the own tag as a number
    ListHeadIsTag // from another station, and the body up to the first `ListMark` equals the own tag
};

struct CatalogueRow {
    Code code;
    std::string_view name;
    Filter filter;
    std::string_view third; // what stands behind the tag in the tag word
    std::string_view meaning;
};

inline constexpr std::array kCatalogue{
    CatalogueRow{Code::XRKA, "XRKA", Filter::NotOwn, "0", "keep-alive"},
    CatalogueRow{Code::XAN, "XAN", Filter::OwnToo, "0", "announcement"},
    CatalogueRow{Code::XANR, "XANR", Filter::NotOwn, "0", "announcement reply"},
    CatalogueRow{Code::XD, "XD", Filter::OwnToo, "", "disconnect"},
    CatalogueRow{Code::XAS, "XAS", Filter::OwnToo, "0", "status changed"},
    CatalogueRow{Code::XALNU, "XALNU", Filter::OwnToo, "0", "location note changed"},
    CatalogueRow{Code::XALU, "XALU", Filter::OwnToo, "0", "location state changed"},
    CatalogueRow{Code::XALS, "XALS", Filter::BodyIsSID, "", "clear occupied"},
    CatalogueRow{Code::XALSN, "XALSN", Filter::TargetIsSID, "", "set occupied, remote"},
    CatalogueRow{Code::XALN, "XALN", Filter::TargetIsSID, "", "set note, remote"},
    CatalogueRow{Code::XAST, "XAST", Filter::OwnToo, "0", "staff tag changed"},
    CatalogueRow{Code::XASTR, "XASTR", Filter::TargetIsSID, "", "set staff tag, remote"},
    CatalogueRow{Code::XAD0, "XAD0", Filter::NotOwn, "", "doorbell to everyone"},
    CatalogueRow{Code::XAD1, "XAD1", Filter::TargetIsSID, "", "doorbell to one"},
    CatalogueRow{Code::XAD1T, "XAD1T", Filter::TargetIsTag, "", "doorbell to a tag"},
    CatalogueRow{Code::XAS0, "XAS0", Filter::NotOwn, "", "turn off status"},
    CatalogueRow{Code::XAS1, "XAS1", Filter::BodyIsSID, "", "turn off status, directed"},
    CatalogueRow{Code::XAS2, "XAS2", Filter::TargetIsSID, "", "set status, directed"},
    CatalogueRow{Code::XAP, "XAP", Filter::TargetIsSID, "", "phone call to one"},
    CatalogueRow{Code::XAPT, "XAPT", Filter::TargetIsTag, "", "phone call to a tag"},
    CatalogueRow{Code::XAUM, "XAUM", Filter::TargetIsSID, "", "urgent to one"},
    CatalogueRow{Code::XAUMT, "XAUMT", Filter::TargetIsTag, "", "urgent to a tag"},
    CatalogueRow{Code::XATM, "XATM", Filter::NotOwn, "", "message to listed recipients"},
    CatalogueRow{Code::XATE, "XATE", Filter::NotOwn, "", "message to everyone"},
    CatalogueRow{Code::XATG, "XATG", Filter::ListHeadIsTag, "", "message to a tag"},
    CatalogueRow{Code::ZA00, "ZA00", Filter::OwnToo, "", "end the program"},
    CatalogueRow{Code::ZA01, "ZA01", Filter::OwnToo, "", "restart the network"},
    CatalogueRow{Code::ZA05, "ZA05", Filter::TargetIsSID, "", "set a quick status slot"},
    CatalogueRow{Code::ZA06, "ZA06", Filter::TargetIsSID, "", "delete a quick status slot"},
    CatalogueRow{Code::ZS01, "ZS01", Filter::NotOwn, "", "shared status list"},
    CatalogueRow{Code::ZS02, "ZS02", Filter::NotOwn, "", "remove shared status"},
    CatalogueRow{Code::ZAAS, "ZAAS", Filter::TargetIsSID, "", "set administrator key"},
    CatalogueRow{Code::ZAGS, "ZAGS", Filter::TargetIsSID, "", "set a user setting"},
};

inline constexpr std::size_t kCodeCount = kCatalogue.size();

constexpr std::size_t indexOf(Code code) {
    return static_cast<std::size_t>(code);
}
constexpr const CatalogueRow& rowOf(Code code) {
    return kCatalogue[indexOf(code)];
}

// What the loss of a packet would cost, when more come than can be handled.
enum class Importance : std::uint8_t {
    Routine,  // the next one says the same
    Presence, // a state or an order that is not repeated
    Alert,    // somebody waits: alerts and messages
    Urgent
};

constexpr Importance importanceOf(Code code) {
    switch (code) {
    case Code::XRKA:
    case Code::XAN:
    case Code::XANR:
        return Importance::Routine;
    case Code::XAUM:
    case Code::XAUMT:
        return Importance::Urgent;
    case Code::XAD0:
    case Code::XAD1:
    case Code::XAD1T:
    case Code::XAP:
    case Code::XAPT:
    case Code::XATM:
    case Code::XATE:
    case Code::XATG:
        return Importance::Alert;
    default:
        return Importance::Presence;
    }
}

namespace catalogue_check {
// A name as a number, so that one comparison settles it; names have at most 8 characters.
constexpr std::uint64_t packed(std::string_view name) {
    std::uint64_t number = 0;
    for (const char c : name) {
        number = (number << 8U) | static_cast<unsigned char>(c);
    }
    return number;
}

constexpr bool sound() {
    for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
        if (indexOf(kCatalogue[i].code) != i || kCatalogue[i].name.size() > 8) {
            return false;
        }
        for (std::size_t j = i + 1; j < kCatalogue.size(); ++j) {
            if (kCatalogue[i].name == kCatalogue[j].name) {
                return false;
            }
        }
    }
    return true;
}
static_assert(sound());
} // namespace catalogue_check

} // namespace tessel
