#include "windows/mainwindow/MessageView.h"

#include "controls/bars/CommandBar.h"
#include "controls/bars/CommandMenu.h"
#include "controls/list/CardControl.h"
#include "controls/look/Images.h"
#include "engine/station.h"
#include "windows/ListFont.h"
#include "windows/dialogs/boxes.h"
#include "windows/dialogs/frmPreview.h"
#include "windows/mainwindow/mod_Toolbars.h"

#include <QIcon>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace tessel {

MessageView::MessageView(Station& station, CommandSet& commands, std::function<QIcon(int)> icon,
                         QWidget* parent)
    : QWidget(parent), m_station(station), m_commands(commands), m_list(new CardControl(this)) {
    createList(std::move(icon));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new CommandBar(commands, CreateMessageToolbar(), tr("Messages"), this));
    layout->addWidget(m_list, 1);

    Inbox& inbox = m_station.inbox;
    connect(m_list, &CardControl::currentRecordChanged, &inbox, &Inbox::setFocused);
    connect(m_list, &CardControl::recordActivated, &inbox, [&inbox](const ReportRecordPtr& record) {
        inbox.setFocused(record);
        inbox.GetMessageFromList();
    });
    connect(m_list, &CardControl::recordMenuRequested, this, &MessageView::showMenu);
    // Not with the list brought up to date first: a list that stands at its top stays there, and a flood
    // costs a sync a frame.
    connect(&inbox, &Inbox::ensureTopVisible, m_list, &CardControl::ensureTopVisible);
    connect(&inbox, &Inbox::printRequested, this, [this](const QString& text) {
        showPreview({tr("Message"), {{.text = text}}}, window());
    });
    connect(&inbox, &Inbox::clearRequested, this, &MessageView::askToRemoveAll);

    // A key that is held would empty the inbox.
    auto* const remove = new QShortcut(Qt::Key_Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut);
    remove->setAutoRepeat(false);
    connect(remove, &QShortcut::activated, &inbox, &Inbox::Delete_Message);
}

void MessageView::createList(std::function<QIcon(int)> icon) {
    m_list->setObjectName(QStringLiteral("rptMessages"));
    m_list->setAccessibleName(tr("Inbox"));
    CardItems items;
    items.heading = static_cast<int>(InboxItem::Display);
    items.headingName = static_cast<int>(InboxItem::Name);
    items.text = static_cast<int>(InboxItem::Preview);
    items.stamp = static_cast<int>(InboxItem::Stamp);
    items.border = static_cast<int>(InboxItem::Display);
    items.whole = static_cast<int>(InboxItem::Body);
    m_list->setCardItems(items);
    m_list->setIconProvider(std::move(icon));
    setListFont(*m_list, m_station.settings.Fonts_MVF(), m_station.settings.Fonts_MVFS());
    m_list->setEmptyState({tr("No Messages"),
                           tr("What other locations write to you stays here until you delete it."),
                           static_cast<int>(Image::Inbox)});
    m_list->setNoMatchState({tr("No message matches the search"),
                             tr("Escape in the search box shows all again."),
                             static_cast<int>(Image::Search)});
    m_list->setRecords(&m_station.inbox.rptMessages);
}

void MessageView::showMenu(const ReportRecordPtr& record, const QPoint& globalPos) {
    auto* const menu = new CommandMenu(m_commands, this);
    menu->setObjectName(QStringLiteral("InboxMenuRC"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setEntries(InitInboxMenuRC());
    connect(menu, &CommandMenu::triggered, this, [this, record](int id) {
        // The list may have moved on: the command is for the message that the menu was opened on.
        if (m_list->selectRecord(record)) {
            m_station.commands.Execute(id);
        }
    });
    menu->popup(globalPos);
}

void MessageView::askToRemoveAll() {
    openQuestion(window(), QMessageBox::Question, QStringLiteral("Delete all Messages"),
                 QStringLiteral(
                     "Are you sure you want to delete all messages?\r\nNote: This action cannot be undone."),
                 this, [this] { m_station.inbox.Remove_All_Inbox_Messages(); });
}

} // namespace tessel
