#include "windows/presence/frmActions.h"

#include "controls/edit/OncePerDoubleClick.h"
#include "controls/list/ReportText.h"
#include "controls/look/TabOrder.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/presence/mod_Favorites.h"
#include "engine/presence/mod_LocalStatus.h"
#include "engine/presence/mod_SharedStatus.h"
#include "windows/presence/PresenceFields.h"
#include "windows/presence/StaffTagButtons.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kFocusMs = 50;
const QColor kAsked(192, 192, 192); // of a name that was sent, and is not known to be taken

// A name of any length must leave the buttons on the screen.
QString shown(const QString& name) {
    constexpr int kShownName = 30; // characters
    return singleLine(name.simplified(), kShownName);
}

// The same in the caption of a group.
QString captioned(const QString& name) {
    return shown(name).replace(u'&', QLatin1String("&&"));
}

} // namespace

frmActions::frmActions(LocationActions& actions, Network network, Favorites& favorites,
                       const SharedStatus& shared, Tones& tones, const Settings& settings, QWidget* parent)
    : QDialog(parent), m_actions(actions), m_network(network), m_favorites(favorites), m_shared(shared),
      m_tones(tones), m_offersTags(settings.Settings_SST()), m_pages(new QTabWidget(this)) {
    setWindowTitle(QStringLiteral("Location Actions"));
    m_pages->setObjectName(QStringLiteral("Views"));
    m_pages->addTab(createStatusPage(), tr("&Set Status"));
    m_pages->addTab(createFavoritePage(), tr("&Favorite Options"));
    m_pages->setAccessibleName(QStringLiteral("Views"));
    auto* const controls = new QWidget(this);
    controls->setObjectName(QStringLiteral("Controls"));
    controls->setAccessibleName(controls->objectName());
    auto* const close = button(QStringLiteral("cmdClose"), tr("C&lose"), {}, controls);
    controls->setLayout(buttonRow({close}));
    controls->layout()->setContentsMargins(0, 0, 0, 0);
    QVBoxLayout* const layout = dialogLayout(*this);
    layout->addWidget(m_pages, 1);
    layout->addWidget(
        offlineLine(network.own, network.layer, *this, [this](bool canSend) { showCanSend(canSend); }));
    layout->addWidget(controls);
    tabAsLaidOut(*this);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget* frmActions::createStatusPage() {
    auto* const page = new QWidget(this);
    m_statusGroup = new QGroupBox(page);
    m_statusGroup->setObjectName(QStringLiteral("grpStatus"));
    m_status = new QComboBox(m_statusGroup);
    m_statusText = new KeyFilterEdit(m_status);
    m_status->setObjectName(QStringLiteral("cmbStatus"));
    m_status->setAccessibleName(tr("Status"));
    m_status->setEditable(true);
    m_status->setInsertPolicy(QComboBox::NoInsert);
    m_status->setLineEdit(m_statusText);
    m_status->setCompleter(nullptr);
    m_statusText->setAllowedCharacters(kTypedCharacters);
    m_statusText->setMaximumLength(LocalStatus::kLongestStatus);
    m_statusText->setPlaceholderText(tr("Choose or type a status"));
    m_set = button(QStringLiteral("cmdStatus"), tr("S&et"), tr("Ask the location to set this status"), page);
    m_clear =
        button(QStringLiteral("cmdClear"), tr("&Clear"), tr("Ask the location to clear its status"), page);
    auto* const status = new QHBoxLayout(m_statusGroup);
    status->setSpacing(kGrid);
    status->addWidget(m_status, 1);
    status->addWidget(m_set);
    status->addWidget(m_clear);

    auto* const state = new QGroupBox(QStringLiteral(" Status "), page);
    m_roomState = new QLabel(state);
    m_roomState->setObjectName(QStringLiteral("lblLocInUse"));
    m_name = patientField(state);
    m_inUse = button(QStringLiteral("cmdLocInUse"), {}, tr("Seat or remove the patient"), state);
    m_inUse->setCheckable(true);
    pressOncePerDoubleClick(*m_inUse);
    m_tags = new StaffTagButtons(state);
    auto* const states = new QGridLayout(state);
    states->setSpacing(kGrid);
    states->addWidget(m_roomState, 0, 0);
    states->addWidget(m_name, 0, 1);
    states->addWidget(m_inUse, 0, 2);
    auto* const tags = new QLabel(tr("Staff tag:"), state);
    states->addWidget(tags, 1, 0);
    states->addWidget(m_tags, 1, 1, 1, 2);
    tags->setVisible(m_offersTags);
    m_tags->setVisible(m_offersTags);
    states->setColumnStretch(1, 1);

    auto* const layout = new QVBoxLayout(page);
    layout->setSpacing(kGrid);
    layout->addWidget(m_statusGroup);
    layout->addWidget(state);
    layout->addStretch(1);

    connect(m_set, &QPushButton::clicked, this, &frmActions::Set_Status);
    connect(m_clear, &QPushButton::clicked, this, [this] { Clear_Status(false); });
    connect(m_statusText, &KeyFilterEdit::enterPressed, this, &frmActions::Set_Status);
    connect(m_statusText, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(m_name, &KeyFilterEdit::enterPressed, m_inUse, &QPushButton::click);
    connect(m_name, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    // A name that is being typed is not asked for yet.
    connect(m_name, &QLineEdit::textEdited, this, [this] { m_name->setPalette({}); });
    connect(m_inUse, &QPushButton::clicked, this, &frmActions::toggleRoom);
    connect(m_tags, &StaffTagButtons::tagChosen, this, [this](int tag) { Set_StaffTag(tag, false); });
    return page;
}

QWidget* frmActions::createFavoritePage() {
    auto* const page = new QWidget(this);
    m_favoriteState = new QLabel(page);
    m_favoriteState->setTextFormat(Qt::PlainText);
    m_favoriteState->setWordWrap(true);
    auto* const tone = new QGroupBox(QStringLiteral("Custom Alert Tone"), page);
    m_tone = new QComboBox(tone);
    m_tone->setObjectName(QStringLiteral("cmbFavTone"));
    m_tone->setAccessibleName(tr("Tone of this favorite"));
    m_play = button(QStringLiteral("cmdPlayQuick"), tr("&Play"), tr("Hear the chosen tone"), tone);
    auto* const tones = new QHBoxLayout(tone);
    tones->setSpacing(kGrid);
    tones->addWidget(m_tone, 1);
    tones->addWidget(m_play);
    auto* const options = new QGroupBox(QStringLiteral(" Favorite Options "), page);
    m_popup = new QCheckBox(tr("Show a pop&up when this location sets a status"), options);
    m_popup->setObjectName(QStringLiteral("chkFavPopup"));
    m_save = button(QStringLiteral("cmdSave"), tr("Sa&ve"), tr("Keep tone and popup"), options);
    m_favorite = button(QStringLiteral("cmdFavorite"), tr("&Remove from Favorites"),
                        tr("Take this location out of the favorites"), options);
    m_add = button(QStringLiteral("cmdAddFavorite"), tr("&Add to Favorites"),
                   tr("Pin this location to the favorites"), options);
    auto* const choices = new QVBoxLayout(options);
    choices->setSpacing(kGrid);
    choices->addWidget(m_popup);
    choices->addLayout(buttonRow({m_add, m_favorite, m_save}));

    auto* const layout = new QVBoxLayout(page);
    layout->setSpacing(kGrid);
    layout->addWidget(m_favoriteState);
    layout->addWidget(tone);
    layout->addWidget(options);
    layout->addStretch(1);

    connect(m_play, &QPushButton::clicked, this, [this] {
        if (const int number = m_tone->currentIndex(); number > 0) {
            m_tones.PlayFavoriteTone(QString::number(number) + u'A');
        } else {
            m_tones.PlayTone(QStringLiteral("Status"));
        }
    });
    connect(m_save, &QPushButton::clicked, this, &frmActions::saveFavorite);
    connect(m_favorite, &QPushButton::clicked, this, &frmActions::removeFavorite);
    connect(m_add, &QPushButton::clicked, this, &frmActions::AddFavorite);
    return page;
}

void frmActions::take(const WindowRequest& request) {
    m_facts = m_actions.factsOf(request.SID);
    LoadFavTones();
    showStatus(!m_facts.Status.isEmpty(), m_facts.Status);
    showRoom();
    m_tags->setTag(m_facts.Tag);
    showFavorite();
    SetTabView(static_cast<ActionsPage>(request.page));
}

void frmActions::SetTabView(ActionsPage page) {
    m_pages->setCurrentIndex(page == ActionsPage::Favorite ? 1 : 0);
    // Once it stands on the screen, whatever took the focus while it opened.
    QTimer::singleShot(kFocusMs, this, [this, page] {
        QWidget* const first = page == ActionsPage::Favorite
                                   ? (m_facts.Slot >= 0 ? static_cast<QWidget*>(m_tone) : m_add)
                               : m_status->isEnabled() ? static_cast<QWidget*>(m_status)
                                                       : m_clear;
        first->setFocus();
    });
}

void frmActions::LoadFavTones() {
    m_tone->clear();
    m_tone->addItems(m_tones.FillToneList(QStringLiteral("Default")));
}

void frmActions::fillStatuses() {
    m_status->clear();
    for (const SharedStatusChoice& choice : m_shared.FillSharedStatusList()) {
        m_status->addItem(choice.label, choice.index);
    }
    m_status->setCurrentIndex(-1);
    m_statusText->clear();
}

void frmActions::showStatus(bool set, const QString& text) {
    const QString act =
        set ? QStringLiteral("Clear Status for location ") : QStringLiteral("Set Status for location ");
    m_statusGroup->setTitle(act + captioned(m_facts.Location));
    if (!set) {
        fillStatuses();
    } else {
        m_statusText->setText(text);
    }
    m_status->setEnabled(!set);
    m_statusSet = set;
    showCanSend(m_network.own.canSend());
}

void frmActions::showCanSend(bool canSend) {
    m_set->setEnabled(canSend && !m_statusSet);
    m_clear->setEnabled(canSend && m_statusSet);
    m_inUse->setEnabled(canSend);
    m_tags->setEnabled(canSend);
}

void frmActions::Set_Status() {
    if (!m_network.layer.CanSend()) {
        return;
    }
    const QString text = m_statusText->text().trimmed();
    const int entry = m_status->currentIndex();
    const bool picked = entry >= 0 && m_status->itemText(entry) == m_statusText->text();
    if (m_actions.Set_Status(m_facts.SID, text, picked ? m_status->itemData(entry).toInt() : -1)) {
        showStatus(true, text);
        m_clear->setFocus();
    } else {
        m_status->setFocus();
    }
}

void frmActions::Clear_Status(bool Close) {
    m_actions.Clear_Status(m_facts.SID);
    showStatus(false, {});
    if (Close) {
        accept();
    } else {
        m_status->setFocus();
    }
}

void frmActions::showRoom() {
    m_inUse->setChecked(m_facts.Occupied);
    showRoomAct(*m_inUse, m_images, m_facts.Occupied, m_facts.Patient);
    m_roomState->setText(m_facts.Occupied ? QStringLiteral("Occupied") : QStringLiteral("Open"));
    m_name->setEnabled(!m_facts.Occupied);
    m_name->setText(m_facts.Patient);
}

void frmActions::toggleRoom() {
    // What it is now is what it was when the window opened, turned by each click here.
    const QString name = patientText(*m_name);
    m_facts.Occupied = !m_facts.Occupied;
    m_facts.Patient = m_facts.Occupied ? name : QString();
    m_actions.ToggleOccupied(m_facts.SID, m_facts.Patient);
    showRoom();
    QPalette asked = m_name->palette();
    asked.setColor(QPalette::Text, kAsked);
    m_name->setPalette(asked);
}

void frmActions::Set_StaffTag(int tag, bool Close) {
    m_actions.Set_StaffTag(m_facts.SID, tag);
    if (Close) {
        accept();
    }
}

void frmActions::showFavorite() {
    m_facts.Slot = m_favorites.FindFavoriteSlot(m_facts.SID);
    const bool favorite = m_facts.Slot >= 0;
    const QString text = favorite ? tr("%1 is one of your favorites.") : tr("%1 is none of your favorites.");
    m_favoriteState->setText(text.arg(shown(m_facts.Location)));
    const int tone = favorite ? m_favorites.toneOf(m_facts.Slot).toInt() : 0;
    m_tone->setCurrentIndex(tone < m_tone->count() ? tone : 0);
    m_popup->setChecked(!favorite || m_favorites.wantsPopup(m_facts.Slot));
    for (QWidget* const part :
         {static_cast<QWidget*>(m_tone), static_cast<QWidget*>(m_popup), static_cast<QWidget*>(m_play),
          static_cast<QWidget*>(m_save), static_cast<QWidget*>(m_favorite)}) {
        part->setEnabled(favorite);
    }
    m_add->setEnabled(!favorite);
}

void frmActions::AddFavorite() {
    const FavoriteAdded added =
        m_favorites.AddFavorite(m_facts.Location, m_facts.SID, Favorites::kDefaultTone);
    showFavorite();
    if (added == FavoriteAdded::Failed) {
        m_favoriteState->setText(tr("Favorites are full"));
    } else {
        m_tone->setFocus();
    }
}

void frmActions::removeFavorite() {
    m_actions.removeFavorite(m_facts.SID);
    showFavorite();
    m_add->setFocus();
}

void frmActions::saveFavorite() {
    if (m_favorites.UpdateFavorite(m_facts.Slot, m_facts.Location, m_facts.SID,
                                   QString::number(m_tone->currentIndex()), m_popup->isChecked())) {
        accept();
    }
}

} // namespace tessel
