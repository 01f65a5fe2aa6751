#include "windows/presence/frmLocationNote.h"

#include "engine/network/mod_Network_MC.h"
#include "windows/presence/PresenceFields.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

frmLocationNote::frmLocationNote(LocationActions& actions, const OwnState& own, NetworkMC& network,
                                 QWidget* parent)
    : QDialog(parent), m_actions(actions), m_network(network), m_note(noteField({}, this)) {
    auto* const set =
        button(QStringLiteral("cmdSet"), tr("S&et"), tr("Ask the location to show this note"), this);
    auto* const remove = button(QStringLiteral("cmdRemove"), tr("&Remove"),
                                tr("Ask the location to take its note away"), this);
    set->setDefault(true);
    QVBoxLayout* const layout = dialogLayout(*this);
    addField(*layout, tr("&Note of that location:"), m_note);
    layout->addWidget(offlineLine(own, network, *this, [set, remove](bool canSend) {
        set->setEnabled(canSend);
        remove->setEnabled(canSend);
    }));
    layout->addLayout(buttonRow({set, remove}));
    layout->addStretch(1);
    connect(set, &QPushButton::clicked, this, &frmLocationNote::set);
    connect(remove, &QPushButton::clicked, this, &frmLocationNote::remove);
    connect(m_note, &KeyFilterEdit::enterPressed, this, &frmLocationNote::set);
    connect(m_note, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    m_note->setFocus();
}

void frmLocationNote::take(const WindowRequest& request) {
    const LocationFacts facts = m_actions.factsOf(request.SID);
    m_SID = facts.SID;
    setWindowTitle(QStringLiteral("Location Note for ") + facts.Location);
    m_note->setText(facts.Note);
    m_note->selectAll();
}

void frmLocationNote::set() {
    if (m_network.CanSend() && m_actions.SetNote(m_SID, m_note->text())) {
        accept();
    }
}

void frmLocationNote::remove() {
    m_actions.RemoveNote(m_SID);
    accept();
}

} // namespace tessel
