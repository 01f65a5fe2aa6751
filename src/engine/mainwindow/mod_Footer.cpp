#include "engine/mainwindow/mod_Footer.h"

#include "engine/core/cOwnState.h"

namespace tessel {

Footer::Footer(const OwnState& own, Clock& clock)
    : tmrFooter(clock, "tmrFooter", 20000, Timer::Kind::OneShot,
                [this] { SetFooter(m_own.location, {}, false); }),
      m_own(own) {}

void Footer::SetFooter(const QString& text, const QString& tip, bool timed) {
    m_text = QLatin1String("  ") + text;
    m_tip = tip;
    if (timed) {
        tmrFooter.restart();
    } else {
        tmrFooter.setEnabled(false);
    }
    emit changed();
}

} // namespace tessel
