#include "windows/presence/frmOccupiedRemote.h"

#include "engine/network/mod_Network_MC.h"
#include "windows/presence/PresenceFields.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

frmOccupiedRemote::frmOccupiedRemote(LocationActions& actions, const OwnState& own, NetworkMC& network,
                                     QWidget* parent)
    : QDialog(parent), m_actions(actions), m_network(network),
      m_occupied(new QCheckBox(tr("Occupied"), this)), m_name(patientField(this)),
      m_inUse(button(QStringLiteral("cmdLocInUse"), {}, {}, this)) {
    m_occupied->setObjectName(QStringLiteral("chkOccupied"));
    m_occupied->setEnabled(false); // it tells; the button acts
    m_inUse->setDefault(true);
    QVBoxLayout* const layout = dialogLayout(*this);
    layout->addWidget(m_occupied);
    addField(*layout, tr("&Patient:"), m_name);
    layout->addWidget(
        offlineLine(own, network, *this, [this](bool canSend) { m_inUse->setEnabled(canSend); }));
    layout->addLayout(buttonRow({m_inUse}));
    layout->addStretch(1);
    connect(m_inUse, &QPushButton::clicked, this, &frmOccupiedRemote::toggle);
    connect(m_name, &KeyFilterEdit::enterPressed, this, &frmOccupiedRemote::toggle);
    connect(m_name, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
}

void frmOccupiedRemote::take(const WindowRequest& request) {
    m_facts = m_actions.factsOf(request.SID);
    setWindowTitle(RoomCaption(m_facts.Occupied, {}) + QLatin1String(" - ") + m_facts.Location);
    m_occupied->setChecked(m_facts.Occupied);
    m_name->setText(m_facts.Patient);
    m_name->setEnabled(!m_facts.Occupied);
    showRoomAct(*m_inUse, m_images, m_facts.Occupied, m_facts.Patient);
    m_inUse->setToolTip(m_facts.Occupied ? tr("Ask the location to mark itself free")
                                         : tr("Ask the location to mark itself occupied"));
    (m_facts.Occupied ? static_cast<QWidget*>(m_inUse) : m_name)->setFocus();
}

void frmOccupiedRemote::toggle() {
    if (!m_network.CanSend()) {
        return;
    }
    m_actions.ToggleOccupied(m_facts.SID, m_facts.Occupied ? QString() : patientText(*m_name));
    accept();
}

} // namespace tessel
