#include "windows/alerts/frmGroupMessage.h"

#include "controls/edit/MessageEdit.h"
#include "controls/edit/PromptEdit.h"
#include "controls/list/ReportText.h"
#include "controls/look/ElidedLabel.h"
#include "controls/look/ScreenPlacement.h"
#include "engine/station.h"
#include "windows/alerts/GroupButtons.h"
#include "windows/alerts/MessageFields.h"
#include "windows/alerts/RecipientPicker.h"
#include "windows/alerts/frmOffline.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr QSize kFirstSize(520, 560);
constexpr int kAllTab = 101;
constexpr int kFavoritesTab = 102;
constexpr int kGroupsTab = 103;
constexpr int kBlinkMs = 500;
// Who is online changes all the time; the window looks when a second has gone by.
constexpr int kChangesMs = 1000;

constexpr RecipientColumns kViewColumns{static_cast<int>(LocationItem::Active),
                                        static_cast<int>(LocationItem::SID),
                                        static_cast<int>(LocationItem::ST)};

// A group that is chosen must be told from the others at a glance.
void showPressed(QPushButton& button, bool pressed) {
    button.setChecked(pressed);
    QPalette palette;
    palette.setResolveMask(0);
    if (pressed) {
        palette.setColor(QPalette::Button, button.palette().color(QPalette::Highlight));
        palette.setColor(QPalette::ButtonText, button.palette().color(QPalette::HighlightedText));
    }
    button.setPalette(palette);
}

EmptyState nobodyOnline() {
    return {frmGroupMessage::tr("No other location is online"), frmGroupMessage::tr("Refresh looks again."),
            static_cast<int>(Image::Home)};
}

EmptyState noFavorites() {
    return {QStringLiteral("No favorites have been selected"),
            frmGroupMessage::tr("Right-click a location under Home and choose Add to Favorites."),
            static_cast<int>(Image::Favorites)};
}
} // namespace

frmGroupMessage::frmGroupMessage(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_search(new PromptEdit(QStringLiteral("Search"), this)),
      m_tabs(new QTabWidget(this)),
      m_users(new RecipientPicker("lstUsers", "cmdClearList", nobodyOnline(), this)),
      m_favorites(new RecipientPicker("lstFavorites", "cmdClearFavorites", noFavorites(), this)),
      m_everyone(new QPushButton(QStringLiteral(" Everyone"), this)),
      m_groups(new GroupButtons(station, false, this)), m_to(new ElidedLabel(this)),
      m_message(new MessageFields(station, tr("Message"), this)), m_alert(new QPushButton(this)),
      m_clear(new QPushButton(tr("&Clear"), this)), m_send(new QPushButton(tr("&Send"), this)) {
    setWindowTitle(tr("New Message"));
    resize(sizeForLetters(*this, kFirstSize));
    m_search->setObjectName(QStringLiteral("txtSearch"));
    m_search->setAccessibleName(QStringLiteral("Search"));
    m_search->setToolTip(tr("Show the locations that hold these words; Enter chooses the first"));
    m_search->setPictures(m_images.image(Image::Search, palette()),
                          m_images.image(Image::MenuClose, palette()));
    m_search->installEventFilter(this);
    m_to->setObjectName(QStringLiteral("lblTo"));
    createPages();
    createButtons();
    layOut();
    connectStation();
    LoadRecipientsAll();
    LoadFavorites();
    LoadGroups();
    SetTabView(m_station.settings.MSGNAV_1(), false);
    showCanSend();
    m_message->text().setFocus();
}

void frmGroupMessage::createPages() {
    m_tabs->setObjectName(QStringLiteral("TabControl"));
    m_tabs->addTab(m_users, tr("&All Locations"));
    m_tabs->addTab(m_favorites, tr("My &Favorites"));
    m_tabs->addTab(createGroups(), tr("Message &Groups"));
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int index) {
        SetTabView(kAllTab + index, true);
        // Whoever changes the page goes on there.
        if (!m_tabs->tabBar()->hasFocus()) {
            QWidget* const first =
                currentPicker() != nullptr ? static_cast<QWidget*>(&currentPicker()->list()) : m_everyone;
            first->setFocus();
        }
    });
    for (RecipientPicker* const picker : {m_users, m_favorites}) {
        connect(picker, &RecipientPicker::chosenChanged, this, &frmGroupMessage::VerifyOnlineList);
        connect(m_search, &PromptEdit::searchChanged, picker, &RecipientPicker::search);
    }
    connect(m_users, &RecipientPicker::refreshWanted, this, &frmGroupMessage::LoadRecipientsAll);
    connect(m_favorites, &RecipientPicker::refreshWanted, this, &frmGroupMessage::LoadFavorites);
    connect(m_search, &PromptEdit::leaveForList, this, [this] {
        if (RecipientPicker* const picker = currentPicker()) {
            picker->list().setFocus();
        }
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_search,
            [this] { m_search->setFocus(Qt::ShortcutFocusReason); });
}

QWidget* frmGroupMessage::createGroups() {
    auto* const page = new QWidget(this);
    auto* const grid = new QGridLayout(page);
    m_everyone->setObjectName(QStringLiteral("cmdGroup0"));
    m_everyone->setToolTip(tr("Send to all locations"));
    grid->addWidget(m_everyone, 0, 0, 1, 2);
    constexpr int kRows = GroupButtons::kCount / 2;
    for (int slot = 0; slot < GroupButtons::kCount; ++slot) {
        grid->addWidget(m_groups->button(slot), 1 + slot % kRows, slot / kRows);
        m_groups->button(slot)->setCheckable(true);
        m_groups->button(slot)->setAutoDefault(false);
    }
    grid->setRowStretch(1 + kRows, 1);
    m_everyone->setCheckable(true);
    m_everyone->setAutoDefault(false);
    connect(m_everyone, &QPushButton::clicked, this, [this] { pressGroup(0); });
    connect(m_groups, &GroupButtons::chosen, this, [this](int slot) { pressGroup(slot + 1); });
    connect(m_groups, &GroupButtons::made, this, [this](int slot) { pressGroup(slot + 1); });
    connect(m_groups, &GroupButtons::loaded, this, &frmGroupMessage::LoadGroups);
    // With large letters on a small screen the buttons would push the message out of it.
    auto* const area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    area->setMinimumWidth(page->minimumSizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    return area;
}

void frmGroupMessage::createButtons() {
    m_alert->setObjectName(QStringLiteral("cmdAlert"));
    m_clear->setObjectName(QStringLiteral("cmdClear"));
    m_clear->setToolTip(tr("Empty the message"));
    m_send->setObjectName(QStringLiteral("cmdSend"));
    m_message->setSendButton(*m_send);
    for (QPushButton* const button : {m_alert, m_clear, m_send}) {
        button->setAutoDefault(false);
    }
    connect(m_alert, &QPushButton::clicked, this, &frmGroupMessage::showOffline);
    connect(m_clear, &QPushButton::clicked, m_message, &MessageFields::ClearQuickMessage);
    connect(m_send, &QPushButton::clicked, this, &frmGroupMessage::CreateMessage);
    connect(m_message, &MessageFields::sendPressed, this, &frmGroupMessage::CreateMessage);
    connect(m_message, &MessageFields::escapePressed, this, &QDialog::reject);
}

void frmGroupMessage::layOut() {
    auto* const to = new QHBoxLayout;
    to->addWidget(m_to, 1);
    to->addWidget(m_alert);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_clear);
    buttons->addWidget(m_send);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_search);
    layout->addWidget(m_tabs, 3);
    layout->addLayout(to);
    layout->addWidget(m_message, 2);
    layout->addWidget(m_message->remark());
    layout->addLayout(buttons);
    const QList<QWidget*> order{m_search, m_tabs, m_alert, m_message, m_clear, m_send};
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

void frmGroupMessage::connectStation() {
    connect(&m_blink, &QTimer::timeout, this, &frmGroupMessage::blink);
    connect(&m_station.network, &NetworkMC::canSendChanged, this, &frmGroupMessage::showCanSend);
    m_changes.setSingleShot(true);
    m_changes.setInterval(kChangesMs);
    connect(&m_station.views.rptEndpoints, &ReportRecords::changed, this, [this] {
        if (!m_changes.isActive()) {
            m_changes.start();
        }
    });
    // A list that one chooses from does not move; one that was opened too early fills.
    connect(&m_changes, &QTimer::timeout, this, [this] {
        if (m_users->isEmpty()) {
            LoadRecipientsAll();
        }
        if (m_favorites->isEmpty()) {
            LoadFavorites();
        }
        VerifyOnlineList();
    });
}

void frmGroupMessage::take(const WindowRequest& request) {
    SetStartMode(request.page, request.SID);
    if (!request.text.isEmpty()) {
        m_message->text().setPlainText(request.text);
        m_message->text().moveCursor(QTextCursor::End);
    }
}

void frmGroupMessage::SetStartMode(int mode, const QString& SID) {
    constexpr int kEveryoneMode = 0;
    constexpr int kFavoritesMode = 2;
    constexpr int kRowMode = 5;
    constexpr int kFirstGroupMode = 460;
    const int slot = mode - kFirstGroupMode;
    if (mode == kEveryoneMode) {
        SetTabView(kGroupsTab, false);
        m_everyone->click();
    } else if (slot >= 0 && slot < GroupButtons::kCount) {
        SetTabView(kGroupsTab, false);
        m_groups->button(slot)->click();
    } else {
        SetTabView(mode == kFavoritesMode ? kFavoritesTab : kAllTab, false);
    }
    if (mode == kRowMode) {
        SelectActiveUser(SID);
    }
    m_message->text().setFocus();
}

void frmGroupMessage::SetTabView(int tab, bool save) {
    {
        const QSignalBlocker quiet(m_tabs);
        m_tabs->setCurrentIndex(std::clamp(tab - kAllTab, 0, m_tabs->count() - 1));
    }
    m_search->setEnabled(currentPicker() != nullptr);
    if (save) {
        m_station.settings.MSGNAV_1.set(tab);
    }
    VerifyOnlineList();
}

RecipientPicker* frmGroupMessage::currentPicker() const {
    return m_tabs->currentIndex() == 0 ? m_users : m_tabs->currentIndex() == 1 ? m_favorites : nullptr;
}

int frmGroupMessage::currentGroup() const {
    return currentPicker() == nullptr && m_group > 0 ? m_group - 1 : -1;
}

void frmGroupMessage::LoadRecipientsAll() {
    m_users->load(m_station.views.rptEndpoints, kViewColumns,
                  m_station.settings.Settings_SORTEV() == 1 ? RecipientOrder::ByName
                                                            : RecipientOrder::ByColor,
                  m_station.own.SID);
}

void frmGroupMessage::LoadFavorites() {
    m_favorites->load(m_station.views.rptFavorites, kViewColumns,
                      m_station.settings.Settings_SORTFV() == 1 ? RecipientOrder::ByName
                                                                : RecipientOrder::ByColor,
                      m_station.own.SID);
}

// A group that is gone is not chosen any more.
void frmGroupMessage::LoadGroups() {
    if (m_group > 0 && !m_station.groups.at(m_group - 1).used) {
        m_group = -1;
    }
    showPressed(*m_everyone, m_group == 0);
    for (int slot = 0; slot < GroupButtons::kCount; ++slot) {
        showPressed(*m_groups->button(slot), m_group == slot + 1);
    }
    VerifyOnlineList();
}

void frmGroupMessage::SelectActiveUser(const QString& SID) {
    m_search->clearSearch();
    if (!m_users->choose(SID)) {
        LoadRecipientsAll(); // it may have come since
        m_users->choose(SID);
    }
}

QString frmGroupMessage::GetRecipientList(int& count) const {
    count = 0;
    const RecipientPicker* const picker = currentPicker();
    if (picker == nullptr) {
        return currentGroup() >= 0 ? m_station.groups.at(currentGroup()).members : QString();
    }
    const QList<Recipient> recipients = picker->chosen();
    count = static_cast<int>(recipients.size());
    return JoinRecipients(recipients);
}

// `button`: 0 is everyone.
void frmGroupMessage::pressGroup(int button) {
    m_group = button;
    LoadGroups();
    (button == 0 ? m_everyone : m_groups->button(button - 1))->setFocus();
}

void frmGroupMessage::blink() {
    m_blinkOn = !m_blinkOn;
    m_alert->setStyleSheet(m_blinkOn ? QStringLiteral("background:#ffaaaa;color:black")
                                     : QStringLiteral("background:#ff6666;color:black"));
}

void frmGroupMessage::VerifyOnlineList() {
    int count = 0;
    const QString recipients = GetRecipientList(count);
    m_offline = m_station.compose.VerifyOnlineList(recipients);
    m_alert->setVisible(!m_offline.isEmpty());
    m_alert->setText(tr("%n offline", nullptr, static_cast<int>(m_offline.size())));
    m_alert->setToolTip(plainTip(singleLine(m_offline.join(QLatin1String(", ")), kTipChars)));
    if (m_offline.isEmpty()) {
        m_blink.stop();
    } else if (!m_blink.isActive()) {
        blink();
        m_blink.start(kBlinkMs);
    }
    showRecipients(recipients);
}

// As many names as can be seen at all: laying out thousands would take a while.
void frmGroupMessage::showRecipients(const QString& recipients) {
    constexpr int kMostNames = 30;
    const QList<Recipient> all = SplitRecipients(recipients);
    QStringList names;
    for (const Recipient& recipient : all.first(std::min<qsizetype>(all.size(), kMostNames))) {
        names += recipient.name;
    }
    QString to = names.join(QLatin1String(", "));
    if (all.size() > kMostNames) {
        to = tr("%1 locations: ").arg(all.size()) + to + QStringLiteral("\u2026");
    }
    if (currentGroup() >= 0) {
        to = m_station.groups.at(currentGroup()).name + QLatin1String(": ") + to;
    } else if (currentPicker() == nullptr && m_group == 0) {
        to = tr("Everyone");
    }
    m_to->setEnabled(!to.isEmpty());
    m_to->setLine(tr("To: ") + (to.isEmpty() ? tr("nobody yet") : to));
}

void frmGroupMessage::showOffline() {
    const int slot = currentGroup();
    auto* const dialog =
        new frmOffline(m_offline, slot >= 0 ? m_station.groups.at(slot).name : QString(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &frmOffline::refreshWanted, this, [this] {
        LoadRecipientsAll();
        LoadFavorites();
    });
    connect(dialog, &frmOffline::editWanted, this, [this, slot] { m_groups->edit(slot); });
    dialog->open();
}

void frmGroupMessage::showCanSend() {
    const bool canSend = m_station.own.canSend();
    m_send->setEnabled(canSend);
    m_message->setObstacle(canSend ? QString() : tr("Offline: nothing can be sent now"));
}

bool frmGroupMessage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        RecipientPicker* const picker = currentPicker();
        if (picker != nullptr && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            picker->toggleCurrent();
            m_search->selectAll(); // the next one can be typed at once
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmGroupMessage::CreateMessage() {
    if (result() == Accepted) {
        return; // sent already: a second press that was on its way
    }
    MessageDraft draft;
    draft.everyone = currentPicker() == nullptr && m_group == 0;
    draft.recipients = GetRecipientList(draft.recipientCount);
    draft.text = m_message->text().message();
    if (m_message->settle(m_station.compose.CreateMessage(draft))) {
        accept();
    }
}

} // namespace tessel
