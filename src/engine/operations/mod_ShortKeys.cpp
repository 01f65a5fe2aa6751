#include "engine/operations/mod_ShortKeys.h"

#include "engine/ports/cWindows.h"
#include "engine/presence/mod_LocalStatus.h"

namespace tessel {

namespace {
constexpr int kF1 = 112;
constexpr int kArmedMs = 4000;
constexpr int kCtrlE = 5;
constexpr int kCtrlZ = 26;
} // namespace

ShortKeys::ShortKeys(LocalStatus& status, Windows& windows, Clock& clock)
    : tmrKeyMod(clock, "tmrKeyMod", kArmedMs, Timer::Kind::OneShot, [this] { KeyModArmed = false; }),
      m_status(status), m_windows(windows) {}

void ShortKeys::Process_ShortKeys(int keyCode) {
    const int slot = keyCode - kF1;
    if (slot >= 0 && slot < LocalStatus::kQuickCount) {
        m_status.SetStatus(slot);
    }
}

void ShortKeys::Process_Keys(int keyAscii) {
    if (keyAscii == kCtrlZ) {
        KeyModArmed = true;
        tmrKeyMod.setEnabled(true);
    } else if (keyAscii == kCtrlE && KeyModArmed) {
        KeyModArmed = false;
        m_windows.show({WindowId::Endpoints});
    }
}

} // namespace tessel
