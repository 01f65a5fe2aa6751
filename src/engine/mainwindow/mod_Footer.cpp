#include "engine/mainwindow/mod_Footer.h"

#include "engine/core/cOwnState.h"

namespace tessel {

Footer::Footer(const OwnState& own, Clock& clock)
    : tmrFooter(clock, "tmrFooter", 20000, Timer::Kind::OneShot,
                [this] {
                    show(m_standing.value_or(Text{m_own.location, {}}), false);
                }),
      m_own(own) {}

void Footer::SetFooter(const QString& text, const QString& tip, bool timed) {
    m_standing = timed ? std::nullopt : std::optional<Text>({text, tip});
    show({text, tip}, timed);
}

void Footer::Remark(const QString& text, const QString& tip) {
    show({text, tip}, true);
}

void Footer::EndText(const QString& text) {
    if (m_standing.has_value() && m_standing->text == text) {
        m_standing.reset();
        // A remark that is shown meanwhile stays its time.
        if (!tmrFooter.enabled()) {
            show({m_own.location, {}}, false);
        }
    }
}

void Footer::show(const Text& text, bool timed) {
    m_text = QLatin1String("  ") + text.text;
    m_tip = text.tip;
    if (timed) {
        tmrFooter.restart();
    } else {
        tmrFooter.setEnabled(false);
    }
    emit changed();
}

} // namespace tessel
