#include "windows/network/frmAdapters.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Network_MC.h"
#include "windows/dialogs/boxes.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kLongestAddress = 64;
constexpr int kLineCharacters = 56;

// The host's name and the address are what a user reads out to whoever helps, so they can be copied.
QLabel* plainLabel(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    // A dialog does not ask its labels how high they get once they wrap.
    const int width = kLineCharacters * label->fontMetrics().averageCharWidth();
    label->setMinimumSize(width, label->heightForWidth(width));
    return label;
}

} // namespace

frmAdapters::frmAdapters(const OwnState& own, NetworkMC& network, Timer& tmrExit, QWidget* parent)
    : QDialog(parent), m_own(own), m_network(network), m_tmrExit(tmrExit), m_adapters(network.adapters()),
      m_list(new QComboBox(this)), m_bind(new QLineEdit(this)) {
    setWindowTitle(tr("Network Adapter"));

    m_list->setObjectName(QStringLiteral("cmbNet"));
    // Names of adapters may be longer than any window.
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_list->setMinimumContentsLength(kLineCharacters / 2);
    m_list->addItem(QStringLiteral("Select a Network Adapter"));
    for (const Adapter& adapter : m_adapters) {
        m_list->addItem(adapter.name);
    }
    m_bind->setObjectName(QStringLiteral("txtBind"));
    m_bind->setMaxLength(kLongestAddress);

    auto* const buttons = new QDialogButtonBox(this);
    auto* const cmdRestart = buttons->addButton(tr("&Restart Network"), QDialogButtonBox::AcceptRole);
    auto* const cmdReset = buttons->addButton(tr("Rese&t"), QDialogButtonBox::ResetRole);
    auto* const cmdCancel = buttons->addButton(QDialogButtonBox::Cancel);
    cmdRestart->setObjectName(QStringLiteral("cmdRestart"));
    cmdRestart->setToolTip(tr("Use this adapter from now on; the network restarts"));
    cmdReset->setObjectName(QStringLiteral("cmdReset"));
    cmdReset->setToolTip(tr("Forget the chosen adapter; the program ends"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdRestart->setDefault(true);

    auto* const form = new QFormLayout;
    form->addRow(tr("&Adapter:"), m_list);
    form->addRow(tr("&IP address:"), m_bind);
    auto* const layout = new QVBoxLayout(this);
    layout->setSpacing(kGrid);
    layout->addWidget(plainLabel(QLatin1String("The host name of this computer is ") + own.host, this));
    layout->addWidget(
        plainLabel(kProductName + QLatin1String(" is currently using ip address ") + own.ownIPAddress, this));
    layout->addLayout(form);
    layout->addStretch(1);
    layout->addWidget(buttons);
    connect(m_list, &QComboBox::currentIndexChanged, this, &frmAdapters::chooseEntry);
    connect(cmdRestart, &QPushButton::clicked, this, &frmAdapters::restart);
    connect(cmdReset, &QPushButton::clicked, this, &frmAdapters::reset);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    const int stored = m_network.storedAdapter();
    m_list->setCurrentIndex(stored >= 0 && stored < static_cast<int>(m_adapters.size()) ? stored + 1 : 0);
    chooseEntry(m_list->currentIndex());
    m_list->setFocus();
}

void frmAdapters::chooseEntry(int entry) {
    m_bind->setText(entry <= 0 ? m_own.host : m_adapters[static_cast<std::size_t>(entry - 1)].address);
}

void frmAdapters::restart() {
    const int adapter = m_list->currentIndex() - 1;
    const QString address = m_bind->text().trimmed();
    // Closed first: going off line takes a second.
    accept();
    m_network.ChooseAdapter(adapter, address);
}

void frmAdapters::reset() {
    // The station goes on behind the question and may end meanwhile, so nothing waits here.
    connect(openRestartBox(this), &QMessageBox::finished, this, [this] {
        m_network.ResetAdapter();
        m_tmrExit.setEnabled(true);
        accept();
    });
}

} // namespace tessel
