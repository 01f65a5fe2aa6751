// Everything outside that a station stands on.
#pragma once

namespace tessel {

class Clock;
class HotKeys;
class Link;
class PopupDisplay;
class Session;
class Sounds;
class Windows;

// All of them outlive the station.
struct Ports {
    Clock& clock;
    Link& link;
    Windows& windows;
    PopupDisplay& popups;
    Session& session;
    Sounds& sounds;
    HotKeys& hotKeys;
};

} // namespace tessel
