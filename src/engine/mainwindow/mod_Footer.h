// The footer of the status bar: what the network is doing, or the location's name.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

namespace tessel {

struct OwnState;

class Footer : public QObject {
    Q_OBJECT
public:
    Footer(const OwnState& own, Clock& clock);

    // A timed text gives way to the location's name after `tmrFooter`.
    void SetFooter(const QString& text, const QString& tip, bool timed);

    // As shown: the text stands behind two blanks.
    const QString& text() const { return m_text; }
    const QString& tip() const { return m_tip; }

    Timer tmrFooter;

signals:
    void changed();

private:
    const OwnState& m_own;
    QString m_text;
    QString m_tip;
};

} // namespace tessel
