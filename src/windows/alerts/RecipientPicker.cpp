#include "windows/alerts/RecipientPicker.h"

#include "controls/list/EmptyHint.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>

namespace tessel {

RecipientPicker::RecipientPicker(const char* list, const char* clear, const EmptyState& empty,
                                 QWidget* parent)
    : QWidget(parent), m_list(new QListWidget(this)), m_clear(new QPushButton(this)),
      m_hint(new EmptyHint(m_list)), m_empty(empty) {
    m_list->setObjectName(QLatin1String(list));
    m_list->setAccessibleName(tr("Recipients"));
    m_list->setToolTip(tr("A click, Space or Enter chooses a location"));
    m_list->setSelectionMode(QAbstractItemView::MultiSelection);
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->installEventFilter(this);
    m_clear->setObjectName(QLatin1String(clear));
    m_clear->setAutoDefault(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_clear, 0, Qt::AlignRight);
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] {
        showChosen();
        emit chosenChanged();
    });
    connect(m_clear, &QPushButton::clicked, this, [this] {
        if (m_list->selectedItems().isEmpty()) {
            emit refreshWanted();
        } else {
            m_list->clearSelection();
        }
    });
    showChosen();
    showHint();
}

void RecipientPicker::load(const ReportRecords& rows, const RecipientColumns& columns, RecipientOrder order,
                           const QString& leaveOut) {
    QSet<QString> stay;
    for (const Recipient& recipient : chosen()) {
        stay += recipient.SID;
    }
    {
        const QSignalBlocker quiet(m_list);
        fillRecipients(*m_list, rows, columns, order, leaveOut);
        for (int row = 0; row < m_list->count() && !stay.isEmpty(); ++row) {
            m_list->item(row)->setSelected(stay.remove(recipientAt(*m_list, row).SID));
        }
    }
    search(m_search);
    showChosen();
    emit chosenChanged();
}

bool RecipientPicker::isEmpty() const {
    return m_list->count() == 0;
}

QList<Recipient> RecipientPicker::chosen() const {
    QList<Recipient> recipients;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->isSelected()) {
            recipients += recipientAt(*m_list, row);
        }
    }
    return recipients;
}

bool RecipientPicker::choose(const QString& SID) {
    for (int row = 0; row < m_list->count(); ++row) {
        if (recipientAt(*m_list, row).SID == SID) {
            m_list->setCurrentRow(row, QItemSelectionModel::Select);
            m_list->scrollToItem(m_list->item(row));
            return true;
        }
    }
    return false;
}

void RecipientPicker::search(const QString& text) {
    m_search = text;
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    int first = -1;
    for (int row = 0; row < m_list->count(); ++row) {
        const QString name = m_list->item(row)->text();
        const bool found = std::ranges::all_of(
            words, [&name](const QString& word) { return name.contains(word, Qt::CaseInsensitive); });
        m_list->setRowHidden(row, !found);
        first = found && first < 0 ? row : first;
    }
    // Enter chooses what one searched for.
    const int current = m_list->currentRow();
    if (first >= 0 && (current < 0 || m_list->isRowHidden(current) || !words.isEmpty())) {
        m_list->setCurrentRow(first, QItemSelectionModel::NoUpdate);
    }
    showHint();
}

void RecipientPicker::toggleCurrent() {
    QListWidgetItem* const current = m_list->currentItem();
    if (current != nullptr && !current->isHidden()) {
        current->setSelected(!current->isSelected());
    }
}

// What the user does not see is not chosen along.
void RecipientPicker::chooseShown() {
    {
        const QSignalBlocker quiet(m_list);
        for (int row = 0; row < m_list->count(); ++row) {
            if (!m_list->isRowHidden(row)) {
                m_list->item(row)->setSelected(true);
            }
        }
    }
    showChosen();
    emit chosenChanged();
}

bool RecipientPicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.matches(QKeySequence::SelectAll)) {
            chooseShown();
            return true;
        }
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            toggleCurrent();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void RecipientPicker::showChosen() {
    const auto count = m_list->selectedItems().size();
    m_clear->setText(count == 0 ? QStringLiteral(" Refresh ") : QStringLiteral(" Clear (%1)").arg(count));
    m_clear->setToolTip(count == 0   ? QStringLiteral("Refresh and Clear")
                        : count == 1 ? QStringLiteral("1 user is selected")
                                     : QStringLiteral("%1 users have been selected").arg(count));
}

void RecipientPicker::showHint() {
    bool shown = false;
    for (int row = 0; row < m_list->count() && !shown; ++row) {
        shown = !m_list->isRowHidden(row);
    }
    const EmptyState noMatch{tr("No location matches the search"), tr("Clear the search to see all."),
                             static_cast<int>(Image::Search)};
    m_hint->setState(shown ? EmptyState() : isEmpty() ? m_empty : noMatch);
}

} // namespace tessel
