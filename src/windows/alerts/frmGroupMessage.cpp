#include "windows/alerts/frmGroupMessage.h"

#include "controls/edit/MessageEdit.h"
#include "engine/station.h"
#include "windows/alerts/RecipientList.h"
#include "windows/alerts/frmGroups.h"
#include "windows/alerts/frmOffline.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr QSize kFirstSize(520, 560);
constexpr int kAllTab = 101;
constexpr int kGroupsTab = 103;
constexpr int kBlinkMs = 500;
} // namespace

frmGroupMessage::frmGroupMessage(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_tabs(new QTabWidget(this)), m_search(new QLineEdit(this)),
      m_users(new QListWidget(this)), m_favorites(new QListWidget(this)), m_clearUsers(new QPushButton(this)),
      m_clearFavorites(new QPushButton(this)), m_text(new MessageEdit(this)), m_snippets(new QComboBox(this)),
      m_alert(new QPushButton(this)), m_send(new QPushButton(tr("&Send"), this)), m_note(new QLabel(this)) {
    setWindowTitle(tr("New Message"));
    resize(kFirstSize);
    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setPlaceholderText(QStringLiteral("Search"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setClearButtonEnabled(true);
    m_users->setObjectName(QStringLiteral("lstUsers"));
    m_favorites->setObjectName(QStringLiteral("lstFavorites"));
    m_tabs->setObjectName(QStringLiteral("TabControl"));
    m_tabs->addTab(createListPage(m_users, m_clearUsers, "cmdClearList"), tr("&All Locations"));
    m_tabs->addTab(createListPage(m_favorites, m_clearFavorites, "cmdClearFavorites"), tr("My &Favorites"));
    m_tabs->addTab(createGroups(), tr("Message &Groups"));
    createText();

    auto* const buttons = new QHBoxLayout;
    auto* const clear = new QPushButton(tr("&Clear"), this);
    clear->setObjectName(QStringLiteral("cmdClear"));
    clear->setToolTip(tr("Empty the message"));
    clear->setAutoDefault(false);
    buttons->addWidget(m_alert);
    buttons->addWidget(m_note, 1);
    buttons->addWidget(clear);
    buttons->addWidget(m_send);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_search);
    layout->addWidget(m_tabs, 3);
    layout->addWidget(m_snippets);
    layout->addWidget(m_text, 2);
    layout->addLayout(buttons);

    connect(clear, &QPushButton::clicked, this, [this] {
        m_text->clear();
        m_text->setFocus();
    });
    connect(m_search, &QLineEdit::textChanged, this, &frmGroupMessage::search);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int index) {
        SetTabView(kAllTab + index, true);
        search(m_search->text());
        VerifyOnlineList();
    });
    connect(&m_blink, &QTimer::timeout, this, [this] {
        m_blinkOn = !m_blinkOn;
        m_alert->setStyleSheet(m_blinkOn ? QStringLiteral("background:#ffaaaa;color:black")
                                         : QStringLiteral("background:#ff6666;color:black"));
    });
    connect(&m_station.groups, &Groups::changed, this, &frmGroupMessage::LoadGroups);
    connect(&m_station.network, &NetworkMC::canSendChanged, this, &frmGroupMessage::showCanSend);
    LoadRecipientsAll();
    LoadFavorites();
    LoadGroups();
    SetTabView(m_station.settings.MSGNAV_1(), false);
    showCanSend();
    VerifyOnlineList();
    m_text->setFocus();
}

QWidget* frmGroupMessage::createListPage(QListWidget* list, QPushButton* clear, const char* name) {
    auto* const page = new QWidget(this);
    list->setSelectionMode(QAbstractItemView::MultiSelection);
    list->setUniformItemSizes(true);
    list->setAccessibleName(tr("Recipients"));
    clear->setObjectName(QLatin1String(name));
    clear->setAutoDefault(false);
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(list, 1);
    layout->addWidget(clear, 0, Qt::AlignRight);
    connect(list, &QListWidget::itemSelectionChanged, this, [this, list, clear] {
        showSelection(*list, *clear);
        VerifyOnlineList();
    });
    connect(clear, &QPushButton::clicked, this, [this, list] {
        if (!list->selectedItems().isEmpty()) {
            list->clearSelection();
        } else if (list == m_users) {
            LoadRecipientsAll();
        } else {
            LoadFavorites();
        }
    });
    showSelection(*list, *clear);
    return page;
}

QWidget* frmGroupMessage::createGroups() {
    auto* const page = new QWidget(this);
    auto* const grid = new QGridLayout(page);
    for (int index = 0; index <= Groups::kGroupCount; ++index) {
        auto* const button = new QPushButton(page);
        button->setObjectName(QStringLiteral("cmdGroup%1").arg(index));
        button->setCheckable(true);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, index] { pressGroup(index); });
        if (index == 0) {
            grid->addWidget(button, 0, 0, 1, 2);
        } else {
            grid->addWidget(button, (index + 1) / 2, (index + 1) % 2);
            button->setContextMenuPolicy(Qt::CustomContextMenu);
            connect(button, &QWidget::customContextMenuRequested, this,
                    [this, index] { editGroup(index - 1); });
        }
        m_groups.push_back(button);
    }
    grid->setRowStretch(Groups::kGroupCount, 1);
    return page;
}

void frmGroupMessage::createText() {
    m_text->setObjectName(QStringLiteral("txtMessage"));
    m_text->setAccessibleName(tr("Message"));
    m_text->setPlaceholderText(m_station.settings.Settings_MSOE() ? tr("Message; Enter sends it")
                                                                  : tr("Message; Ctrl+Enter sends it"));
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(Compose::kLongestMessage);
    m_text->setSendOnEnter(m_station.settings.Settings_MSOE());
    m_text->setMend(FitMessage);
    connect(m_text, &MessageEdit::sendPressed, this, &frmGroupMessage::CreateMessage);
    connect(m_text, &MessageEdit::escapePressed, this, &QDialog::reject);
    m_snippets->setObjectName(QStringLiteral("cmbSnippit"));
    m_snippets->setAccessibleName(tr("Snippets"));
    m_snippets->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_snippets->addItem(QStringLiteral("Select a Snippet"));
    m_snippets->addItems(m_station.snippets.list());
    connect(m_snippets, &QComboBox::activated, this, [this](int index) {
        if (index > 0) {
            m_text->append(m_snippets->itemText(index));
            m_snippets->setCurrentIndex(0);
            m_text->setFocus();
        }
    });
    m_send->setObjectName(QStringLiteral("cmdSend"));
    m_send->setAutoDefault(false);
    m_alert->setObjectName(QStringLiteral("cmdAlert"));
    m_alert->setToolTip(tr("Some recipients are offline"));
    m_alert->setAutoDefault(false);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    connect(m_send, &QPushButton::clicked, this, &frmGroupMessage::CreateMessage);
    connect(m_alert, &QPushButton::clicked, this, &frmGroupMessage::showOffline);
}

void frmGroupMessage::take(const WindowRequest& request) {
    SetStartMode(request.page, request.SID);
}

void frmGroupMessage::SetStartMode(int mode, const QString& SID) {
    constexpr int kEveryoneMode = 0;
    constexpr int kFavoritesMode = 2;
    constexpr int kRowMode = 5;
    constexpr int kFirstGroupMode = 460;
    const int group = mode - kFirstGroupMode;
    if (mode == kEveryoneMode || (group >= 0 && group < Groups::kGroupCount)) {
        SetTabView(kGroupsTab, false);
        pressGroup(mode == kEveryoneMode ? 0 : group + 1);
    } else {
        SetTabView(mode == kFavoritesMode ? kAllTab + 1 : kAllTab, false);
    }
    if (mode == kRowMode) {
        SelectActiveUser(SID);
    }
    m_text->setFocus();
}

void frmGroupMessage::SetTabView(int tab, bool save) {
    const QSignalBlocker quiet(m_tabs);
    m_tabs->setCurrentIndex(std::clamp(tab - kAllTab, 0, m_tabs->count() - 1));
    m_search->setEnabled(currentList() != nullptr);
    if (save) {
        m_station.settings.MSGNAV_1.set(tab);
    }
}

QListWidget* frmGroupMessage::currentList() const {
    return m_tabs->currentIndex() == 0 ? m_users : m_tabs->currentIndex() == 1 ? m_favorites : nullptr;
}

void frmGroupMessage::LoadRecipientsAll() {
    fillRecipients(*m_users, m_station.views.rptEndpoints, static_cast<int>(LocationItem::Active),
                   static_cast<int>(LocationItem::SID), m_station.own.SID);
}

void frmGroupMessage::LoadFavorites() {
    fillRecipients(*m_favorites, m_station.views.rptFavorites, static_cast<int>(LocationItem::Active),
                   static_cast<int>(LocationItem::SID), m_station.own.SID);
}

void frmGroupMessage::LoadGroups() {
    m_groups[0]->setText(QStringLiteral(" Everyone"));
    for (int slot = 0; slot < Groups::kGroupCount; ++slot) {
        QPushButton& button = *m_groups[static_cast<std::size_t>(slot) + 1];
        button.setText(m_station.groups.caption(slot).replace(u'&', QLatin1String("&&")));
        button.setToolTip(m_station.groups.tip(slot));
    }
    VerifyOnlineList();
}

void frmGroupMessage::SelectActiveUser(const QString& SID) {
    for (int row = 0; row < m_users->count(); ++row) {
        if (recipientAt(*m_users, row).SID == SID) {
            m_users->item(row)->setSelected(true);
            m_users->scrollToItem(m_users->item(row));
            return;
        }
    }
}

QString frmGroupMessage::GetRecipientList(int& count) const {
    count = 0;
    const QListWidget* const list = currentList();
    if (list == nullptr) {
        return m_group > 0 ? m_station.groups.at(m_group - 1).members : QString();
    }
    QList<Recipient> recipients;
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->isSelected()) {
            recipients += recipientAt(*list, row);
        }
    }
    count = static_cast<int>(recipients.size());
    return JoinRecipients(recipients);
}

void frmGroupMessage::pressGroup(int index) {
    m_group = index;
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
        m_groups[i]->setChecked(static_cast<int>(i) == index);
    }
    m_groups[static_cast<std::size_t>(index)]->setFocus();
    if (index > 0 && !m_station.groups.at(index - 1).used) {
        editGroup(index - 1);
    }
    VerifyOnlineList();
}

void frmGroupMessage::editGroup(int slot) {
    frmGroups editor(m_station.groups, m_station.endpoints.records(), m_station.own.SID, slot, this);
    editor.exec();
}

void frmGroupMessage::VerifyOnlineList() {
    int count = 0;
    m_offline = m_station.compose.VerifyOnlineList(GetRecipientList(count));
    m_alert->setVisible(!m_offline.isEmpty());
    m_alert->setText(tr("%n offline", nullptr, static_cast<int>(m_offline.size())));
    if (m_offline.isEmpty()) {
        m_blink.stop();
    } else {
        m_blink.start(kBlinkMs);
    }
}

void frmGroupMessage::showSelection(QListWidget& list, QPushButton& clear) {
    const auto count = list.selectedItems().size();
    clear.setText(count == 0 ? QStringLiteral(" Refresh ") : QStringLiteral(" Clear (%1)").arg(count));
    clear.setToolTip(count == 0   ? QStringLiteral("Refresh and Clear")
                     : count == 1 ? QStringLiteral("1 user is selected")
                                  : QStringLiteral("%1 users have been selected").arg(count));
}

void frmGroupMessage::search(const QString& text) {
    QListWidget* const list = currentList();
    if (list == nullptr) {
        return;
    }
    for (int row = 0; row < list->count(); ++row) {
        list->setRowHidden(row, !list->item(row)->text().contains(text, Qt::CaseInsensitive));
    }
}

void frmGroupMessage::showOffline() {
    const bool group = currentList() == nullptr && m_group > 0;
    frmOffline dialog(m_offline, group ? m_station.groups.at(m_group - 1).name : QString(), this);
    connect(&dialog, &frmOffline::refreshWanted, this, [this] {
        LoadRecipientsAll();
        LoadFavorites();
        VerifyOnlineList();
    });
    dialog.exec();
    if (dialog.editWanted()) {
        editGroup(m_group - 1);
    }
}

void frmGroupMessage::showCanSend() {
    m_send->setEnabled(m_station.own.canSend());
    m_note->setText(m_station.own.canSend() ? QString() : tr("Offline: nothing can be sent now"));
}

void frmGroupMessage::CreateMessage() {
    MessageDraft draft;
    draft.everyone = currentList() == nullptr && m_group == 0;
    draft.recipients = GetRecipientList(draft.recipientCount);
    draft.text = m_text->message();
    switch (m_station.compose.CreateMessage(draft)) {
    case SendResult::Sent:
        accept();
        break;
    case SendResult::TooShort:
        m_text->clear();
        m_text->setFocus();
        break;
    case SendResult::TooLong:
        m_note->setText(tr("Too long to be sent"));
        break;
    case SendResult::NoRecipient:
    case SendResult::Offline:
        break;
    }
}

} // namespace tessel
