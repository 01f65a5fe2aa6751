// Asks before a favorite is removed.
#pragma once

#include "engine/presence/mod_LocationActions.h"
#include "windows/FormWindows.h"

#include <QMessageBox>

namespace tessel {

class frmRemoveFavorite : public QMessageBox, public RequestedWindow {
    Q_OBJECT
public:
    frmRemoveFavorite(LocationActions& actions, QWidget* parent)
        : QMessageBox(QMessageBox::Question, QStringLiteral("Remove Favorite"), {},
                      QMessageBox::Yes | QMessageBox::No, parent),
          m_actions(actions) {
        setTextFormat(Qt::PlainText);
        setDefaultButton(QMessageBox::No);
        connect(this, &QMessageBox::finished, this, [this](int answer) {
            if (answer == QMessageBox::Yes) {
                m_actions.removeFavorite(m_SID);
            }
        });
    }

    void take(const WindowRequest& request) override {
        m_SID = request.SID;
        setText(QStringLiteral("Remove '%1' from your favorites list? ")
                    .arg(m_actions.factsOf(m_SID).Location.simplified()));
    }

private:
    LocationActions& m_actions;
    QString m_SID;
};

} // namespace tessel
