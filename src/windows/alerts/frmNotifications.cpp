#include "windows/alerts/frmNotifications.h"

#include "controls/edit/PromptEdit.h"
#include "controls/list/CardControl.h"
#include "controls/look/ScreenPlacement.h"
#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/core/mod_Settings.h"
#include "windows/ListFont.h"
#include "windows/alerts/frmRecentOptions.h"
#include "windows/dialogs/boxes.h"

#include <QAction>
#include <QLabel>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr QSize kFirstSize(420, 520);
constexpr int kGrid = 8;
} // namespace

void askToClearRecents(NotificationHistory& history, QWidget* parent, const QString& caption) {
    openQuestion(parent, QMessageBox::Question, caption,
                 QStringLiteral("Please confirm list deletion.\r\nNote: This action cannot be undone."),
                 parent, [&history] { history.ClearRecents(); });
}

frmNotifications::frmNotifications(Settings& settings, NotificationHistory& history)
    : m_settings(settings), m_history(history), m_filter(new PromptEdit(QStringLiteral("Filter"), this)),
      m_list(new CardControl(this)) {
    setWindowTitle(tr("Notifications"));
    createBar();
    // Everything in the bar is to be seen.
    resize(sizeForLetters(*this, kFirstSize).expandedTo({m_bar->sizeHint().width() + kGrid, 0}));
    createList();

    auto* const centre = new QWidget(this);
    auto* const layout = new QVBoxLayout(centre);
    layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_filter);
    layout->addWidget(m_list, 1);
    setCentralWidget(centre);
    auto* const leave = new QShortcut(Qt::Key_Escape, this);
    connect(leave, &QShortcut::activated, this, &QWidget::close);
    m_list->setFocus();
}

void frmNotifications::createBar() {
    QToolBar* const bar = m_bar = addToolBar(tr("Notifications"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    auto* const title = new QLabel(QStringLiteral("Recent Notification History"), bar);
    title->setContentsMargins(kGrid, 0, 0, 0);
    bar->addWidget(title);
    auto* const space = new QWidget(bar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(space);

    QAction* const top = bar->addAction(tr("Scroll to &Top"));
    top->setObjectName(QStringLiteral("chkEnsureVisible"));
    top->setCheckable(true);
    top->setShortcut(Qt::CTRL | Qt::Key_T);
    top->setChecked(m_settings.Recents_EV());
    top->setToolTip(tr("Scroll to top when receiving a notification"));
    connect(top, &QAction::triggered, this, [this] { m_history.SetEnsureVisible_Notification(); });
    QAction* const options = bar->addAction(tr("&Options…"));
    options->setObjectName(QStringLiteral("mnuOptions"));
    options->setShortcut(Qt::CTRL | Qt::Key_O);
    options->setToolTip(tr("Choose what is kept in this list"));
    connect(options, &QAction::triggered, this, [this] {
        auto* const dialog = new frmRecentOptions(m_settings, m_history, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    QAction* const clear = bar->addAction(tr("&Clear…"));
    clear->setObjectName(QStringLiteral("mnuClear"));
    clear->setToolTip(tr("Delete all notifications"));
    connect(clear, &QAction::triggered, this, &frmNotifications::askClear);
}

void frmNotifications::createList() {
    m_list->setObjectName(QStringLiteral("rptNotifications"));
    m_list->setAccessibleName(tr("Notifications"));
    CardItems items;
    items.heading = static_cast<int>(CardItem::Heading);
    items.headingName = static_cast<int>(CardItem::Name);
    items.text = static_cast<int>(CardItem::Text);
    items.stamp = static_cast<int>(CardItem::Stamp);
    items.border = static_cast<int>(CardItem::Border);
    m_list->setCardItems(items);
    m_list->setIconProvider([this](int number) { return m_images.image(number, palette()); });
    setListFont(*m_list, m_settings.Fonts_MVF(), m_settings.Fonts_MVFS());
    m_list->setEmptyState({QStringLiteral("No Notifications"), tr("Options… chooses what is kept here."),
                           static_cast<int>(Image::Notifications)});
    m_list->setNoMatchState({tr("No notification matches the filter"),
                             tr("Escape in the filter shows all again."), static_cast<int>(Image::Search)});
    m_list->setRecords(&m_history.rptNotifications);
    m_filter->setAccessibleName(tr("Filter notifications"));
    m_filter->setPictures(m_images.image(Image::Search, palette()),
                          m_images.image(Image::MenuClose, palette()));
    connect(m_filter, &PromptEdit::searchChanged, m_list, &CardControl::setFilterText);
    connect(m_filter, &PromptEdit::entered, m_list, &CardControl::prepareFilter);
    connect(m_filter, &PromptEdit::leaveForList, m_list, [this] { m_list->setFocus(); });
    connect(m_list, &CardControl::recordActivated, this, [this](const ReportRecordPtr& record) {
        m_history.Open_Recent(item(*record, CardItem::Record).text);
    });
    connect(&m_history, &NotificationHistory::ensureTopVisible, m_list, &CardControl::ensureTopVisible);
}

void frmNotifications::askClear() {
    askToClearRecents(m_history, this, QStringLiteral("Recents"));
}

} // namespace tessel
