// The footer of the status bar: what the network is doing, or the location's name.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

#include <optional>

namespace tessel {

struct OwnState;

class Footer : public QObject {
    Q_OBJECT
public:
    Footer(const OwnState& own, Clock& clock);

    // A timed text gives way to the location's name after `tmrFooter`; any other stands.
    void SetFooter(const QString& text, const QString& tip, bool timed);
    // A word in passing: after `tmrFooter` the text that stood is back.
    void Remark(const QString& text, const QString& tip);
    // Takes a standing text away, if this is the one.
    void EndText(const QString& text);

    // As shown: the text stands behind two blanks.
    const QString& text() const { return m_text; }
    const QString& tip() const { return m_tip; }

    Timer tmrFooter;

signals:
    void changed();

private:
    struct Text {
        QString text;
        QString tip;
    };
    void show(const Text& text, bool timed);

    const OwnState& m_own;
    std::optional<Text> m_standing; // none: the location's name
    QString m_text;
    QString m_tip;
};

} // namespace tessel
