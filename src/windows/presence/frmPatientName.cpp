#include "windows/presence/frmPatientName.h"

#include "engine/core/cOwnState.h"
#include "engine/presence/mod_OwnPresence.h"
#include "windows/presence/PresenceFields.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

frmPatientName::frmPatientName(const OwnState& own, OwnPresence& presence, QWidget* parent)
    : QDialog(parent), m_presence(presence), m_name(patientField(this)) {
    setWindowTitle(QStringLiteral("This Location - ") + own.location);
    auto* const save = button(QStringLiteral("cmdSave"), tr("&Save"), tr("Seat the patient"), this);
    save->setDefault(true);
    QVBoxLayout* const layout = dialogLayout(*this);
    addField(*layout, tr("&Patient:"), m_name);
    layout->addLayout(buttonRow({save}));
    layout->addStretch(1);

    connect(save, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_name, &KeyFilterEdit::enterPressed, this, &QDialog::accept);
    connect(m_name, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(&presence, &OwnPresence::changed, this, [this, &own] {
        if (!own.occupied) {
            reject(); // freed from elsewhere: there is nobody left to name
        }
    });
    m_name->setFocus();
}

void frmPatientName::done(int result) {
    if (!m_done) {
        m_done = true;
        m_presence.namePatient(result == Accepted ? patientText(*m_name) : QString());
    }
    QDialog::done(result);
}

} // namespace tessel
