// The alert bar across the views: the one trace of an alert that always shows.
#pragma once

#include "engine/core/tsTimerCTL.h"

#include <QObject>
#include <QString>

namespace tessel {

class Settings;

class AlertBar : public QObject {
    Q_OBJECT
public:
    AlertBar(const Settings& settings, Clock& clock);

    // All texts are plain.
    struct Content {
        int iconId = 0;
        QString title;
        QString text;
        QString time;
        QString name;
    };

    // Shows the bar in all views, in the place of an earlier one, for `ABPT` minutes from now.
    void CreateMessagebarAlert(const QString& title, const QString& text, const QString& name, int kind);
    void TurnOff_AlertBar();

    bool AlertBarShown() const { return m_shown; }
    const Content& content() const { return m_content; }

    tsTimerCTL tstmrAlertOff;

signals:
    void changed();

private:
    const Settings& m_settings;
    Clock& m_clock;
    bool m_shown = false;
    Content m_content;
};

} // namespace tessel
