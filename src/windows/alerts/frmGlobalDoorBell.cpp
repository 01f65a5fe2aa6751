#include "windows/alerts/frmGlobalDoorBell.h"

#include "controls/edit/KeyFilterEdit.h"
#include "engine/alerts/mod_AlertEngine.h"
#include "engine/alerts/mod_Snippets.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Network_MC.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kLeastWidth = 340;
} // namespace

frmGlobalDoorBell::frmGlobalDoorBell(const OwnState& own, const Snippets& snippets, const NetworkMC& network,
                                     AlertEngine& alerts, QWidget* parent)
    : QDialog(parent), m_own(own), m_snippets(snippets), m_alerts(alerts), m_snippet(new QComboBox(this)),
      m_text(new KeyFilterEdit(this)), m_offline(new QLabel(tr("Offline: nothing can be sent now"), this)) {
    setWindowTitle(tr("DoorBell Alert"));
    setMinimumWidth(kLeastWidth);
    m_snippet->setObjectName(QStringLiteral("cmbSnippet"));
    m_snippet->setAccessibleName(tr("Text of the doorbell"));
    m_snippet->setEditable(true);
    m_snippet->setInsertPolicy(QComboBox::NoInsert);
    m_snippet->setLineEdit(m_text);
    m_snippet->setCompleter(nullptr);
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(AlertEngine::kLongestDoorBell);
    m_text->setPlaceholderText(tr("Optional text"));
    LoadSnippetDB();

    auto* const everyone = new QPushButton(tr("Alert Everyone"), this);
    everyone->setObjectName(QStringLiteral("cmdGroup0"));
    everyone->setToolTip(tr("(F1) Ring the doorbell at all locations"));
    everyone->setDefault(true);
    m_groups.push_back(everyone);

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
    layout->addWidget(everyone);
    layout->addStretch(1);

    connect(everyone, &QPushButton::clicked, this, &frmGlobalDoorBell::SendDoorBell);
    connect(m_text, &KeyFilterEdit::enterPressed, this, &frmGlobalDoorBell::SendDoorBell);
    connect(m_text, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(&network, &NetworkMC::canSendChanged, this, &frmGlobalDoorBell::showCanSend);
    showCanSend();
    m_snippet->setFocus();
}

void frmGlobalDoorBell::showCanSend() {
    const bool canSend = m_own.canSend();
    m_offline->setVisible(!canSend);
    for (QPushButton* const group : m_groups) {
        group->setEnabled(canSend);
    }
}

void frmGlobalDoorBell::LoadSnippetDB() {
    m_snippet->addItems(m_snippets.list());
    m_snippet->setCurrentIndex(-1);
}

void frmGlobalDoorBell::keyPressEvent(QKeyEvent* event) {
    const int number = event->key() - Qt::Key_F1;
    if (number >= 0 && number < static_cast<int>(m_groups.size())) {
        // Held, it rings once.
        if (!event->isAutoRepeat()) {
            m_groups[static_cast<std::size_t>(number)]->click();
        }
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmGlobalDoorBell::SendDoorBell() {
    if (result() == Accepted) {
        return; // rung already: a second press or click that was on its way
    }
    // What was not sent stays in the box, to be sent when the network is back.
    if (m_alerts.SendDoorBell(m_text->text())) {
        accept();
    }
}

} // namespace tessel
