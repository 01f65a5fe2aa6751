#include "engine/alerts/mod_AlertBar.h"

#include "engine/core/mod_Settings.h"

namespace tessel {

namespace {
// Images of doorbell, phone call and urgent follow each other in the order of the kinds.
constexpr int kFirstIcon = 32901;
constexpr int kLongestText = 1000;
} // namespace

AlertBar::AlertBar(const Settings& settings, Clock& clock)
    : tstmrAlertOff(clock, "tstmrAlertOff", [this] { TurnOff_AlertBar(); }), m_settings(settings),
      m_clock(clock) {}

void AlertBar::CreateMessagebarAlert(const QString& title, const QString& text, const QString& name,
                                     int kind) {
    m_content = {kFirstIcon + kind, title, text.left(kLongestText), m_clock.timeText(), name};
    m_shown = true;
    tstmrAlertOff.setEnabled(false);
    tstmrAlertOff.MinuteInterval = m_settings.Settings_ABPT();
    tstmrAlertOff.setEnabled(true);
    emit changed();
}

void AlertBar::TurnOff_AlertBar() {
    tstmrAlertOff.setEnabled(false);
    if (m_shown) {
        m_shown = false;
        emit changed();
    }
}

} // namespace tessel
