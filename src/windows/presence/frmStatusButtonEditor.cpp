#include "windows/presence/frmStatusButtonEditor.h"

#include "controls/edit/KeyFilterEdit.h"
#include "controls/look/TabOrder.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/cOwnState.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/operations/mod_Admin.h"
#include "windows/dialogs/boxes.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kRowsInSight = 10;
constexpr int kAuthorLines = 6;

constexpr char kSend[] = "Send";
constexpr char kPushQuestion[] = "Send these Shared Status settings to all online locations?\n\n"
                                 "Note: Make sure all locations are online, if not you will need to "
                                 "resend these settings once they are. This action cannot be undone.";
constexpr char kRemoveQuestion[] = "Remove the Shared Status settings form all online locations?\n\n"
                                   "Note: Make sure all locations are online, if not you will need to "
                                   "remove these settings once they are. This action cannot be undone.";
constexpr char kDeleteCaption[] = "Delete Shared Status File";
constexpr char kDeleteQuestion[] = "Delete this Shared Status file.\nNote: This action cannot be undone.";

} // namespace

frmStatusButtonEditor::frmStatusButtonEditor(const OwnState& own, const Admin& admin, NetworkMC& network,
                                             Tones& tones, SharedStatus& shared, QWidget* parent)
    : QDialog(parent), m_own(own), m_admin(admin), m_network(network), m_tones(tones), m_shared(shared),
      m_author(new QListWidget(this)), m_save(new QPushButton(tr("&Save"), this)),
      m_saveQuit(new QPushButton(tr("Save and &close"), this)), m_cancel(new QPushButton(tr("Cancel"), this)),
      m_delete(new QPushButton(tr("&Delete here"), this)), m_push(new QPushButton(tr("Send to &all"), this)),
      m_removeAll(new QPushButton(tr("&Remove from all"), this)) {
    setObjectName(QStringLiteral("frmStatusButtonEditor"));
    setWindowTitle(QStringLiteral("Shared Status Editor"));
    createButtons();
    auto* const text = new QLabel(tr("Statuses that all locations of the office can choose from, each with "
                                     "its tone. Save them, then send them to all."),
                                  this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);

    auto* const office = new QVBoxLayout;
    office->setSpacing(kGrid);
    office->addWidget(createAuthor());
    office->addStretch(1);
    for (QPushButton* const button : {m_push, m_removeAll, m_delete}) {
        office->addWidget(button);
    }
    auto* const middle = new QHBoxLayout;
    middle->setSpacing(2 * kGrid);
    middle->addWidget(createRows(), 2);
    middle->addLayout(office, 1);
    auto* const foot = new QHBoxLayout;
    foot->addStretch(1);
    for (QPushButton* const button : {m_save, m_saveQuit, m_cancel}) {
        foot->addWidget(button);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(text);
    layout->addLayout(middle, 1);
    layout->addLayout(foot);

    tabAsLaidOut(*this);
    LoadAdminRestrictions();
    LoadStatus();
    // What another location sends meanwhile must not take what is being written here.
    connect(&m_shared, &SharedStatus::loaded, this, [this] {
        if (m_modified) {
            LoadAuthorInformation();
            TogglePushButtons();
        } else {
            LoadStatus();
        }
    });
    connect(&m_network, &NetworkMC::canSendChanged, this, &frmStatusButtonEditor::TogglePushButtons);
    m_rows.front().text->setFocus();
}

QWidget* frmStatusButtonEditor::createRows() {
    auto* const inside = new QWidget(this);
    auto* const grid = new QGridLayout(inside);
    grid->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    grid->setSpacing(kGrid / 2);
    grid->setColumnStretch(1, 1);
    for (int index = 0; index < SharedStatus::kUsed; ++index) {
        const QString number = QString::number(index + 1);
        Row row{new KeyFilterEdit(inside), new QComboBox(inside)};
        row.text->setObjectName(QStringLiteral("txtStatusMessage%1").arg(index));
        row.text->setAllowedCharacters(kTypedCharacters);
        row.text->setMaximumLength(SharedStatus::kLongestLabel);
        row.text->setAccessibleName(tr("Text of shared status %1").arg(number));
        row.text->setPlaceholderText(tr("Not used"));
        row.tone->setObjectName(QStringLiteral("cmbStatus%1").arg(index));
        row.tone->addItems(m_tones.FillToneList(QStringLiteral("No Tone")));
        row.tone->setAccessibleName(tr("Tone of shared status %1").arg(number));
        row.tone->setFocusPolicy(Qt::StrongFocus);
        auto* const play = new QPushButton(tr("Play"), inside);
        play->setObjectName(QStringLiteral("cmdPlayQuick%1").arg(index));
        play->setAutoDefault(false);
        play->setToolTip(tr("Hear this tone"));
        play->setAccessibleName(tr("Play the tone of shared status %1").arg(number));
        grid->addWidget(new QLabel(number, inside), index, 0);
        grid->addWidget(row.text, index, 1);
        grid->addWidget(row.tone, index, 2);
        grid->addWidget(play, index, 3);
        connect(row.text, &QLineEdit::textChanged, this, [this] { setModified(true); });
        connect(row.tone, &QComboBox::currentIndexChanged, this, [this] { setModified(true); });
        connect(play, &QPushButton::clicked, this, [this, index] { playTone(index); });
        m_rows.push_back(row);
    }
    auto* const scroll = new QScrollArea(this);
    scroll->setWidget(inside);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setMinimumWidth(inside->sizeHint().width() + scroll->sizeHint().width() / 8);
    // In large letters on a small screen fewer of them have room above the buttons.
    scroll->setMinimumHeight(std::min(kRowsInSight * (m_rows.front().text->sizeHint().height() + kGrid / 2),
                                      screen()->availableSize().height() / 2));
    scroll->setFocusPolicy(Qt::NoFocus);
    return scroll;
}

QWidget* frmStatusButtonEditor::createAuthor() {
    auto* const group = new QGroupBox(tr("Last saved or sent by"), this);
    auto* const layout = new QVBoxLayout(group);
    m_author->setObjectName(QStringLiteral("lstAuthor"));
    m_author->setAccessibleName(group->title());
    m_author->setWordWrap(true);
    m_author->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_author->setMinimumHeight((kAuthorLines + 1) * (fontMetrics().lineSpacing() + kGrid / 2));
    layout->addWidget(m_author);
    return group;
}

void frmStatusButtonEditor::createButtons() {
    const auto prepare = [](QPushButton* button, const char* name, const QString& tip) {
        button->setObjectName(QLatin1String(name));
        button->setToolTip(tip);
        button->setAutoDefault(false);
    };
    prepare(m_save, "cmdSave", tr("Saves the list on this computer"));
    prepare(m_saveQuit, "cmdSaveQuit", tr("Saves the list on this computer and closes this window"));
    prepare(m_cancel, "cmdCancel", tr("Closes this window without saving"));
    prepare(m_delete, "cmdDelete", tr("Deletes the list on this computer alone"));
    prepare(m_push, "cmdPush", tr("Sends the saved list to all locations that are online"));
    prepare(m_removeAll, "cmdRemoveAll", tr("Deletes the list at all other locations that are online"));
    connect(m_save, &QPushButton::clicked, this, &frmStatusButtonEditor::SaveStatus);
    connect(m_saveQuit, &QPushButton::clicked, this, [this] {
        if (SaveStatus()) {
            accept();
        }
    });
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_delete, &QPushButton::clicked, this, [this] {
        ask(QLatin1String(kDeleteCaption), QLatin1String(kDeleteQuestion),
            &frmStatusButtonEditor::deleteFile);
    });
    connect(m_push, &QPushButton::clicked, this, [this] {
        ask(QLatin1String(kSend), QLatin1String(kPushQuestion), &frmStatusButtonEditor::push);
    });
    connect(m_removeAll, &QPushButton::clicked, this, [this] {
        ask(QLatin1String(kSend), QLatin1String(kRemoveQuestion), &frmStatusButtonEditor::removeAll);
    });
}

void frmStatusButtonEditor::LoadAdminRestrictions() {
    m_restricted = Admin::restricted(m_admin.SSAdmin);
    for (QPushButton* const button : {m_save, m_saveQuit, m_cancel, m_delete, m_push, m_removeAll}) {
        button->setEnabled(!m_restricted);
    }
}

void frmStatusButtonEditor::ResetFormData() {
    for (const Row& row : m_rows) {
        row.text->clear();
        row.tone->setCurrentIndex(0);
    }
}

void frmStatusButtonEditor::LoadStatus() {
    m_loading = true;
    ResetFormData();
    for (int index = 0; m_shared.fileThere() && index < SharedStatus::kUsed; ++index) {
        const SharedStatusEntry& entry = m_shared.entry(index);
        if (entry.Active) {
            const Row& row = m_rows[static_cast<std::size_t>(index)];
            row.text->setText(entry.Label);
            row.text->setCursorPosition(0); // what is longer than the field shows its beginning
            const int tone = entry.Tone.toInt();
            row.tone->setCurrentIndex(tone < row.tone->count() ? tone : 0);
        }
    }
    m_loading = false;
    setModified(false);
    LoadAuthorInformation();
}

void frmStatusButtonEditor::LoadAuthorInformation() {
    const SharedStatus::Author author = m_shared.LoadAuthorInformation();
    m_author->clear();
    m_author->addItem(QLatin1String("Creator: ") + author.user);
    m_author->addItem(QLatin1String("Host: ") + author.host);
    m_author->addItem(QLatin1String("ID: ") + author.id);
    m_author->addItem(QLatin1String("Time: ") + author.time);
    m_author->addItem(QLatin1String("Date: ") + author.date);
    if (m_restricted) {
        m_author->addItem(QStringLiteral("Admin Restricted"));
    }
}

std::vector<SharedStatus::Row> frmStatusButtonEditor::rows() const {
    std::vector<SharedStatus::Row> all;
    for (const Row& row : m_rows) {
        all.push_back({row.text->text(), row.tone->currentIndex()});
    }
    return all;
}

void frmStatusButtonEditor::setModified(bool modified) {
    if (!m_loading) {
        m_modified = modified;
        TogglePushButtons();
    }
}

void frmStatusButtonEditor::TogglePushButtons() {
    m_push->setVisible(m_own.online);
    m_removeAll->setVisible(m_own.online);
    if (m_restricted) {
        return;
    }
    m_push->setEnabled(SharedStatus::isUpdateable(rows()));
    m_delete->setEnabled(m_shared.fileThere());
}

bool frmStatusButtonEditor::SaveStatus() {
    const bool before = std::exchange(m_modified, false); // so that what is read back is shown
    const int wrong = m_shared.SaveStatus(rows());
    if (wrong < 0) {
        return true;
    }
    m_modified = before;
    m_rows[static_cast<std::size_t>(wrong)].text->setFocus();
    m_rows[static_cast<std::size_t>(wrong)].text->selectAll();
    return false;
}

void frmStatusButtonEditor::playTone(int row) {
    const int tone = m_rows[static_cast<std::size_t>(row)].tone->currentIndex();
    if (tone > 0) {
        m_tones.PlayFavoriteTone(QString::number(tone) + u'A');
    }
}

void frmStatusButtonEditor::ask(const QString& caption, const QString& question,
                                void (frmStatusButtonEditor::*act)()) {
    openQuestion(this, QMessageBox::Question, caption, question, this, [this, act] { (this->*act)(); });
}

// What is in the rows is what the user means to send.
void frmStatusButtonEditor::push() {
    if ((!m_modified || SaveStatus()) && m_network.CanSend()) {
        m_shared.SendToAllUsers();
    }
}

void frmStatusButtonEditor::removeAll() {
    if (m_network.CanSend()) {
        m_shared.sendRemoveAll();
    }
}

void frmStatusButtonEditor::deleteFile() {
    m_modified = false;
    m_shared.DeleteSharedStatus();
}

} // namespace tessel
