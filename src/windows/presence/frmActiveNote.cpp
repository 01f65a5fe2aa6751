#include "windows/presence/frmActiveNote.h"

#include "engine/core/cOwnState.h"
#include "engine/mainwindow/mod_Shell.h"
#include "engine/presence/mod_OwnPresence.h"
#include "windows/presence/PresenceFields.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

frmActiveNote::frmActiveNote(const OwnState& own, OwnPresence& presence, Shell& shell, QWidget* parent)
    : QDialog(parent), m_presence(presence), m_shell(shell), m_note(noteField(own.note, this)),
      m_preview(button(QStringLiteral("cmdLocationNote"), {}, tr("In the lists of locations"), this)) {
    setWindowTitle(QStringLiteral("Location Note"));
    auto* const set = button(QStringLiteral("cmdSet"), tr("S&et"), tr("Show this note to all"), this);
    auto* const remove = button(QStringLiteral("cmdRemove"), tr("&Remove"), tr("Take the note away"), this);
    set->setDefault(true);
    remove->setEnabled(!own.note.isEmpty());
    m_preview->setCheckable(true);
    QVBoxLayout* const layout = dialogLayout(*this);
    addField(*layout, tr("&Note of this location:"), m_note);
    QHBoxLayout* const row = buttonRow({set, remove});
    row->insertWidget(0, m_preview);
    layout->addLayout(row);
    layout->addStretch(1);

    connect(set, &QPushButton::clicked, this, &frmActiveNote::set);
    connect(remove, &QPushButton::clicked, this, &frmActiveNote::remove);
    connect(m_note, &KeyFilterEdit::enterPressed, this, &frmActiveNote::set);
    connect(m_note, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(m_preview, &QPushButton::clicked, &shell, &Shell::SetPreviewMode);
    connect(&shell, &Shell::previewModeChanged, this, &frmActiveNote::showPreviewMode);
    showPreviewMode();
    m_note->setFocus();
}

void frmActiveNote::showPreviewMode() {
    const bool shown = m_shell.previewMode();
    m_preview->setChecked(shown);
    m_preview->setText(shown ? QStringLiteral("Hide all Notes") : QStringLiteral("Show all Notes"));
}

void frmActiveNote::set() {
    if (m_presence.SetActiveNote(m_note->text())) {
        accept();
    }
}

void frmActiveNote::remove() {
    m_presence.RemoveActiveNote();
    accept();
}

} // namespace tessel
