#include "windows/presence/frmSetStatus.h"

#include "controls/edit/KeyFilterEdit.h"
#include "controls/edit/OncePerDoubleClick.h"
#include "engine/core/mod_Definitions.h"
#include "engine/ports/cWindows.h"
#include "engine/station.h"
#include "windows/dialogs/boxes.h"
#include "windows/presence/StaffTagButtons.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kColumns = 3;
} // namespace

frmSetStatus::frmSetStatus(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_choice(new QComboBox(this)), m_edit(new KeyFilterEdit(this)),
      m_set(new QPushButton(tr("S&et"), this)), m_clear(new QPushButton(tr("&Clear"), this)) {
    setWindowTitle(tr("My Status"));
    createChoice();

    auto* const choice = new QHBoxLayout;
    choice->setSpacing(kGrid);
    choice->addWidget(m_choice, 1);
    choice->addWidget(m_set);
    choice->addWidget(m_clear);
    auto* const label = new QLabel(tr("S&tatus:"), this);
    label->setBuddy(m_choice);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(label);
    layout->addLayout(choice);
    layout->addSpacing(kGrid);
    layout->addWidget(createQuickButtons());
    if (m_station.settings.Settings_SST()) {
        layout->addSpacing(kGrid);
        layout->addWidget(createStaffTags());
    }
    layout->addStretch(1);

    connect(m_set, &QPushButton::clicked, this, &frmSetStatus::set);
    connect(m_clear, &QPushButton::clicked, this, &frmSetStatus::clear);
    connect(&m_station.status, &LocalStatus::changed, this, &frmSetStatus::showState);
    connect(&m_station.status, &LocalStatus::quickStatusesLoaded, this, &frmSetStatus::showState);
    connect(&m_station.presence, &OwnPresence::changed, this, &frmSetStatus::showState);
    showState();
    (m_choice->isEnabled() ? static_cast<QWidget*>(m_choice) : m_clear)->setFocus();
}

void frmSetStatus::createChoice() {
    m_choice->setObjectName(QStringLiteral("cmbStatus"));
    m_choice->setAccessibleName(tr("Status"));
    m_choice->setEditable(true);
    m_choice->setInsertPolicy(QComboBox::NoInsert);
    m_choice->setLineEdit(m_edit);
    m_choice->setCompleter(nullptr);
    m_edit->setAllowedCharacters(kTypedCharacters);
    m_edit->setMaximumLength(LocalStatus::kLongestStatus);
    m_edit->setPlaceholderText(tr("What are you doing?"));
    for (const SharedStatusChoice& choice : m_station.sharedStatus.FillSharedStatusList()) {
        m_choice->addItem(choice.label, choice.index);
    }
    m_choice->setCurrentIndex(-1);
    connect(m_edit, &KeyFilterEdit::enterPressed, this, &frmSetStatus::set);
    connect(m_edit, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    m_set->setObjectName(QStringLiteral("cmdSet"));
    m_set->setToolTip(tr("Show this status to all locations"));
    m_clear->setObjectName(QStringLiteral("cmdClear"));
    m_clear->setToolTip(tr("Turn the status off"));
    m_set->setAutoDefault(false);
    m_clear->setAutoDefault(false);
}

QWidget* frmSetStatus::createQuickButtons() {
    auto* const group = new QGroupBox(tr("Quick statuses"), this);
    auto* const grid = new QGridLayout(group);
    grid->setSpacing(kGrid);
    for (int index = 0; index < LocalStatus::kQuickCount; ++index) {
        auto* const button = new QPushButton(group);
        button->setObjectName(QStringLiteral("cmdStatus%1").arg(index));
        button->setCheckable(true);
        button->setAutoDefault(false);
        pressOncePerDoubleClick(*button);
        grid->addWidget(button, index / kColumns, index % kColumns);
        m_quick.push_back(button);
        connect(button, &QPushButton::clicked, this, [this, index] { pressQuick(index); });
    }
    return group;
}

QWidget* frmSetStatus::createStaffTags() {
    auto* const group = new QGroupBox(tr("Staff tag"), this);
    group->setObjectName(QStringLiteral("grpStaff"));
    m_staffTags = new StaffTagButtons(group);
    auto* const row = new QVBoxLayout(group);
    row->addWidget(m_staffTags);
    connect(m_staffTags, &StaffTagButtons::tagChosen, this,
            [this](int tag) { m_station.presence.Set_StaffTag(static_cast<std::int16_t>(tag)); });
    return group;
}

void frmSetStatus::showState() {
    const OwnState& own = m_station.own;
    const bool set = own.status.size() >= LocalStatus::kShortestStatus;
    const bool wasSet = !m_choice->isEnabled();
    m_choice->setEnabled(!set);
    m_set->setVisible(!set);
    m_clear->setVisible(set);
    if (set || wasSet) {
        m_edit->setText(own.status);
    }
    for (int index = 0; index < LocalStatus::kQuickCount; ++index) {
        const QuickStatus& quick = m_station.status.quick(index);
        const bool configured = quick.Message.size() >= LocalStatus::kShortestStatus;
        QPushButton* const button = m_quick[static_cast<std::size_t>(index)];
        QString caption = quick.Name.isEmpty() ? quick.Message : quick.Name;
        button->setText(configured ? caption.replace(u'&', QLatin1String("&&")) : tr("Not set"));
        button->setToolTip(
            (configured ? quick.Message : tr("Choose a status for this button")).toHtmlEscaped());
        button->setChecked(m_station.status.latched(index));
    }
    if (m_staffTags != nullptr) {
        m_staffTags->setTag(own.staffTag);
    }
}

int frmSetStatus::pickedShared() const {
    const int entry = m_choice->currentIndex();
    return entry >= 0 && m_choice->itemText(entry) == m_edit->text() ? m_choice->itemData(entry).toInt() : -1;
}

void frmSetStatus::set() {
    if (m_station.status.choose(m_edit->text(), pickedShared())) {
        accept();
    } else {
        m_choice->setFocus();
    }
}

void frmSetStatus::clear() {
    m_station.status.TurnOffStatus();
    accept();
}

void frmSetStatus::pressQuick(int index) {
    // The engine decides what is pressed; the button alone must not look as if it were.
    showState();
    switch (m_station.status.pressed(index)) {
    case LocalStatus::Press::Sets:
        m_station.status.SetStatus(index);
        showState();
        break;
    case LocalStatus::Press::OpensOptions:
        m_station.windows.show({.window = WindowId::Options, .slot = index});
        break;
    case LocalStatus::Press::AsksToEdit:
        openQuestion(this, QMessageBox::Question, QStringLiteral("Shared Status Button"),
                     QStringLiteral("This Shared Status is no longer active.\n"
                                    "Would you like to edit this button?"),
                     this,
                     [this, index] { m_station.windows.show({.window = WindowId::Options, .slot = index}); });
        break;
    }
}

} // namespace tessel
