#include "windows/alerts/frmGroups.h"

#include "controls/edit/KeyFilterEdit.h"
#include "controls/list/EmptyHint.h"
#include "controls/look/ScreenPlacement.h"
#include "controls/look/TabOrder.h"
#include "engine/alerts/mod_Groups.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Endpoints.h"
#include "windows/alerts/RecipientList.h"

#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kLongestName = 25;
constexpr QSize kFirstSize(560, 440);
} // namespace

frmGroups::frmGroups(Groups& groups, const ReportRecords& locations, const QString& ownSID, int slot,
                     QWidget* parent)
    : QDialog(parent), m_groups(groups), m_slot(slot), m_name(new KeyFilterEdit(this)),
      m_all(makeList("lstAll", tr("All locations"))),
      m_selected(makeList("lstSelected", tr("Members of the group"))), m_remark(new QLabel(this)) {
    setObjectName(QStringLiteral("frmGroups"));
    setWindowTitle(QStringLiteral("Location Group %1").arg(slot + 1));
    resize(sizeForLetters(*this, kFirstSize));
    m_name->setObjectName(QStringLiteral("txtGroupName"));
    m_name->setAllowedCharacters(QStringLiteral("0123456789abcdefghijklmnopqrstuvwxyz@- "));
    m_name->setMaximumLength(kLongestName);
    m_name->setPlaceholderText(Groups::defaultName(slot));
    m_remark->setTextFormat(Qt::PlainText);
    m_remark->setWordWrap(true);
    m_noneLeft = new EmptyHint(m_all);
    m_noMembers = new EmptyHint(m_selected);

    auto* const label = new QLabel(tr("&Name:"), this);
    label->setBuddy(m_name);
    const auto column = [this](QListWidget* list) {
        auto* const box = new QVBoxLayout;
        auto* const title = new QLabel(list->accessibleName(), this);
        title->setBuddy(list);
        box->addWidget(title);
        box->addWidget(list, 1);
        return box;
    };
    auto* const lists = new QHBoxLayout;
    lists->setSpacing(kGrid);
    lists->addLayout(column(m_all), 1);
    lists->addWidget(createMovers());
    lists->addLayout(column(m_selected), 1);

    const auto button = [this](const char* name, const QString& caption, const QString& tip, auto act) {
        auto* const made = new QPushButton(caption, this);
        made->setObjectName(QLatin1String(name));
        made->setToolTip(tip);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        return made;
    };
    auto* const buttons = new QHBoxLayout;
    auto* const remove = button("cmdDefault", tr("&Delete Group"), tr("Free this slot"), [this] { free(); });
    remove->setEnabled(m_groups.at(slot).used);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    auto* const save = button("cmdSave", tr("&Save"), {}, [this] { this->save(); });
    save->setDefault(true);
    buttons->addWidget(save);
    buttons->addWidget(button("cmdCancel", tr("Cancel"), {}, [this] { reject(); }));

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(label);
    layout->addWidget(m_name);
    layout->addLayout(lists, 1);
    layout->addWidget(m_remark);
    layout->addLayout(buttons);
    tabAsLaidOut(*this);

    LoadRecipientsAll(locations, ownSID);
    LoadGroup();
    showState();
    m_name->setFocus();
}

QListWidget* frmGroups::makeList(const char* name, const QString& title) {
    auto* const list = new QListWidget(this);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(title);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->installEventFilter(this);
    return list;
}

QWidget* frmGroups::createMovers() {
    auto* const box = new QWidget(this);
    auto* const layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    const auto add = [&](const char* name, const QString& caption, const QString& tip, QListWidget* from,
                         QListWidget* to, bool all) {
        auto* const made = new QPushButton(caption, box);
        made->setObjectName(QLatin1String(name));
        made->setToolTip(tip);
        made->setAccessibleName(tip);
        made->setAutoDefault(false);
        layout->addWidget(made);
        connect(made, &QPushButton::clicked, this, [this, from, to, all] { move(*from, *to, all); });
        return made;
    };
    m_rightOne = add("cmdRightOne", tr(">"), tr("Add the selected locations"), m_all, m_selected, false);
    m_rightAll = add("cmdRightAll", tr(">>"), tr("Add all locations"), m_all, m_selected, true);
    m_leftOne = add("cmdLeftOne", tr("<"), tr("Remove the selected locations"), m_selected, m_all, false);
    m_leftAll = add("cmdLeftAll", tr("<<"), tr("Remove all locations"), m_selected, m_all, true);
    layout->addStretch(1);
    const auto across = [this](QListWidget* from, QListWidget* to) {
        connect(from, &QListWidget::itemDoubleClicked, this, [this, from, to] { move(*from, *to, false); });
        connect(from, &QListWidget::itemSelectionChanged, this, &frmGroups::showState);
    };
    across(m_all, m_selected);
    across(m_selected, m_all);
    return box;
}

void frmGroups::LoadRecipientsAll(const ReportRecords& locations, const QString& ownSID) {
    fillRecipients(*m_all, locations,
                   {static_cast<int>(EndpointItem::Active), static_cast<int>(EndpointItem::SID),
                    static_cast<int>(EndpointItem::Tag)},
                   RecipientOrder::ByName, ownSID);
}

void frmGroups::LoadGroup() {
    const MessageGroup& group = m_groups.at(m_slot);
    m_name->setText(group.name);
    for (const Recipient& member : SplitRecipients(group.members)) {
        addRecipient(*m_selected, member, kNoTag);
    }
    Synclist();
}

void frmGroups::Synclist() {
    QHash<QString, QListWidgetItem*> offline;
    for (int row = 0; row < m_selected->count(); ++row) {
        offline.insert(recipientAt(*m_selected, row).SID, m_selected->item(row));
    }
    for (int row = m_all->count() - 1; row >= 0; --row) {
        if (QListWidgetItem* const member = offline.take(recipientAt(*m_all, row).SID)) {
            member->setIcon(m_all->item(row)->icon());
            delete m_all->takeItem(row);
        }
    }
    QFont slanted = m_selected->font();
    slanted.setItalic(true);
    for (QListWidgetItem* const member : std::as_const(offline)) {
        member->setFont(slanted);
        member->setToolTip(tr("Offline now"));
    }
}

// Enter is the list's while it has the keyboard, and does not save.
bool frmGroups::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && (watched == m_all || watched == m_selected)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            move(*(watched == m_all ? m_all : m_selected), *(watched == m_all ? m_selected : m_all), false);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmGroups::move(QListWidget& from, QListWidget& to, bool all) {
    for (int row = 0; row < from.count();) {
        if (all || from.item(row)->isSelected()) {
            to.addItem(from.takeItem(row));
        } else {
            ++row;
        }
    }
    showState();
}

void frmGroups::save() {
    QList<Recipient> members;
    for (int row = 0; row < m_selected->count(); ++row) {
        members += recipientAt(*m_selected, row);
    }
    if (m_groups.SaveGroup(m_slot, m_name->text(), JoinRecipients(members))) {
        accept();
        return;
    }
    m_remark->setText(
        tr("The group could not be saved. It may have too many members, or its file cannot be written."));
}

void frmGroups::free() {
    m_groups.DeleteGroup(m_slot);
    accept();
}

void frmGroups::showState() {
    m_rightOne->setEnabled(!m_all->selectedItems().isEmpty());
    m_rightAll->setEnabled(m_all->count() > 0);
    m_leftOne->setEnabled(!m_selected->selectedItems().isEmpty());
    m_leftAll->setEnabled(m_selected->count() > 0);
    const EmptyState nobody{tr("No other location is online"),
                            tr("Those that come online can be chosen then."), static_cast<int>(Image::Home)};
    const EmptyState allIn{tr("All locations are members"), {}, static_cast<int>(Image::Home)};
    const EmptyState noMembers{tr("No members yet"), tr("Choose locations at the left and press >."),
                               static_cast<int>(Image::NewMessage)};
    m_noneLeft->setState(m_all->count() > 0 ? EmptyState() : m_selected->count() > 0 ? allIn : nobody);
    m_noMembers->setState(m_selected->count() > 0 ? EmptyState() : noMembers);
    m_remark->setText(m_selected->count() > 0 ? QString() : tr("A group without members is not kept"));
}

} // namespace tessel
