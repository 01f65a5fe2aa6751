#include "windows/alerts/frmGlobalDoorBell.h"

#include "controls/edit/KeyFilterEdit.h"
#include "engine/core/mod_Definitions.h"
#include "engine/station.h"
#include "windows/alerts/GroupButtons.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kLeastLetters = 34; // that the box has room for
} // namespace

frmGlobalDoorBell::frmGlobalDoorBell(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_snippet(new QComboBox(this)), m_text(new KeyFilterEdit(this)),
      m_offline(new QLabel(tr("Offline: nothing can be sent now"), this)),
      m_everyone(new QPushButton(tr("Alert Everyone"), this)),
      m_groups(new GroupButtons(station, true, this)) {
    setWindowTitle(tr("DoorBell Alert"));
    m_snippet->setObjectName(QStringLiteral("cmbSnippet"));
    m_snippet->setAccessibleName(tr("Text of the doorbell"));
    m_snippet->setEditable(true);
    m_snippet->setInsertPolicy(QComboBox::NoInsert);
    m_snippet->setLineEdit(m_text);
    m_snippet->setCompleter(nullptr);
    m_snippet->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_snippet->setMinimumContentsLength(kLeastLetters);
    m_text->setObjectName(QStringLiteral("fltText"));
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(AlertEngine::kLongestDoorBell);
    m_text->setPlaceholderText(tr("Optional text"));
    m_everyone->setObjectName(QStringLiteral("cmdGroup0"));
    m_everyone->setToolTip(tr("Ring the doorbell at all locations (Enter)"));
    m_everyone->setDefault(true);
    m_offline->setObjectName(QStringLiteral("lblOffline"));
    m_offline->setTextFormat(Qt::PlainText);
    m_offline->setWordWrap(true);

    auto* const label = new QLabel(tr("&Text:"), this);
    label->setBuddy(m_snippet);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(label);
    layout->addWidget(m_snippet);
    layout->addWidget(m_offline);
    layout->addSpacing(kGrid);
    layout->addWidget(m_everyone);
    auto* const groups = new QGridLayout;
    groups->setVerticalSpacing(kGrid / 2);
    groups->setColumnStretch(1, 1);
    for (int slot = 0; slot < GroupButtons::kCount; ++slot) {
        auto* const key = new QLabel(QStringLiteral("F%1").arg(slot + 1), this);
        key->setForegroundRole(QPalette::PlaceholderText);
        groups->addWidget(key, slot, 0);
        groups->addWidget(m_groups->button(slot), slot, 1);
    }
    layout->addLayout(groups);
    layout->addStretch(1);

    connect(m_everyone, &QPushButton::clicked, this, &frmGlobalDoorBell::SendDoorBell);
    connect(m_groups, &GroupButtons::chosen, this, &frmGlobalDoorBell::SendDoorBell_Group);
    connect(m_groups, &GroupButtons::loaded, this, &frmGlobalDoorBell::LoadGroups);
    connect(m_text, &KeyFilterEdit::enterPressed, this, &frmGlobalDoorBell::SendDoorBell);
    connect(m_text, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(&m_station.network, &NetworkMC::canSendChanged, this, &frmGlobalDoorBell::LoadGroups);
    connect(&m_station.snippets, &Snippets::changed, this, &frmGlobalDoorBell::LoadSnippetDB);
    LoadSnippetDB();
    LoadGroups();
    m_snippet->setFocus();
}

void frmGlobalDoorBell::LoadSnippetDB() {
    const QString typed = m_text->text();
    m_snippet->clear();
    m_snippet->addItems(m_station.snippets.list());
    m_snippet->setCurrentIndex(-1);
    m_text->setText(typed);
}

// Groups can be made while nothing can be sent.
void frmGlobalDoorBell::LoadGroups() {
    const bool canSend = m_station.own.canSend();
    m_offline->setVisible(!canSend);
    m_everyone->setEnabled(canSend);
    for (int slot = 0; slot < GroupButtons::kCount; ++slot) {
        m_groups->button(slot)->setEnabled(canSend || !m_station.groups.at(slot).used);
    }
}

void frmGlobalDoorBell::keyPressEvent(QKeyEvent* event) {
    if (!ProcessKeys(*event)) {
        QDialog::keyPressEvent(event);
    }
}

bool frmGlobalDoorBell::ProcessKeys(const QKeyEvent& event) {
    const int slot = event.key() - Qt::Key_F1;
    if (slot < 0 || slot >= GroupButtons::kCount) {
        return false;
    }
    // Held, it rings once.
    if (!event.isAutoRepeat()) {
        m_groups->button(slot)->click();
    }
    return true;
}

// A window that has rung does not ring for a second press or click that was on its way. What was not
// sent stays in the box, to be sent when the network is back.
void frmGlobalDoorBell::SendDoorBell() {
    if (result() != Accepted && m_station.alerts.SendDoorBell(m_text->text())) {
        accept();
    }
}

void frmGlobalDoorBell::SendDoorBell_Group(int slot) {
    const QString& members = m_station.groups.at(slot).members;
    if (result() != Accepted && m_station.alerts.SendDoorBell_Group(members, m_text->text())) {
        accept();
    }
}

} // namespace tessel
