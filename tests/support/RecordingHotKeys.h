// Keys of a system that has them all, but for those that a test gives to another program.
#pragma once

#include "engine/ports/cHotKeys.h"

#include <map>
#include <set>

namespace tessel {

class RecordingHotKeys : public HotKeys {
public:
    using Key = std::pair<int, int>; // modifier, key
    std::map<int, Key> held;
    std::set<Key> taken; // by another program
    HotKeyRoad roadToday = HotKeyRoad::Screen;
    QString desktopsKey;

    bool RegisterHotKey(int id, int modifier, int key, const QString&) override {
        if (taken.contains({modifier, key})) {
            return false;
        }
        held[id] = {modifier, key};
        return true;
    }
    bool UnregisterHotKey(int id) override { return held.erase(id) > 0; }
    bool holds(int id) const override { return held.contains(id); }
    HotKeyRoad road() override { return roadToday; }
    QString assigned(int) const override { return desktopsKey; }
};

} // namespace tessel
