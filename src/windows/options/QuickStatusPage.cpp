#include "windows/options/QuickStatusPage.h"

#include "controls/edit/KeyFilterEdit.h"
#include "engine/core/mod_Definitions.h"
#include "engine/ports/cHotKeys.h"
#include "engine/ports/cWindows.h"
#include "engine/station.h"
#include "windows/dialogs/boxes.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kLeastLetters = 10; // of a text, in large letters on a small screen
constexpr char kHeading[] = "Quick statuses";
constexpr char kSharedHeading[] = "Shared statuses";
enum Column { kNumber, kMessage, kName, kHotKey, kShortcut, kClear };

QLabel* plain(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

QuickStatusPage::QuickStatusPage(Station& station, QWidget* parent)
    : OptionPage(station, parent), m_station(station) {
    addText(QLatin1String(kHeading),
            plain(tr("Each button sets its text as your status; a second press turns it off. Choose one of "
                     "the office's shared statuses from a list, or write your own."),
                  this));
    addRow(QLatin1String(kHeading), {}, makeSlots(),
           tr("quick status name text message button hot key shortcut desktop F1 F2 F3 keyboard"));
    m_road = plain({}, this);
    m_road->setObjectName(QStringLiteral("lblHotKeys"));
    m_road->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    addText(QLatin1String(kHeading), m_road);

    m_save = new QPushButton(tr("&Save quick statuses"), this);
    m_save->setObjectName(QStringLiteral("cmdSaveStatus"));
    m_save->setAutoDefault(false);
    m_save->setToolTip(tr("They are also saved when this window is closed"));
    addRow(QLatin1String(kHeading), {}, m_save, tr("save quick statuses"));
    connect(m_save, &QPushButton::clicked, this, &QuickStatusPage::SaveStatus);

    auto* const edit = new QPushButton(tr("&Edit the shared statuses…"), this);
    edit->setObjectName(QStringLiteral("cmdSharedStatus"));
    edit->setAutoDefault(false);
    edit->setToolTip(tr("The list of statuses that all locations of the office can choose from"));
    addRow(QLatin1String(kSharedHeading), {}, edit, tr("shared statuses office list editor push all"));
    QGroupBox* const shared = group(QLatin1String(kSharedHeading));
    shared->setObjectName(QStringLiteral("grpSharedStatus"));
    const bool hidden = m_station.admin.AdminFilePresent && Admin::restricted(m_station.admin.SSHide);
    shared->setProperty("restricted", hidden);
    shared->setVisible(!hidden);
    connect(edit, &QPushButton::clicked, this,
            [this] { m_station.windows.show({WindowId::StatusButtonEditor}); });
    finish();

    LoadQuickHotKeys();
    LoadStatus();
    connect(&m_station.hotKeys, &QuickHotKeys::changed, this, &QuickStatusPage::showNotices);
    // What comes from afar must not take what is being written here.
    const auto reload = [this] {
        if (!m_modified) {
            LoadStatus();
        }
    };
    connect(&m_station.status, &LocalStatus::quickStatusesLoaded, this, reload);
    connect(&m_station.sharedStatus, &SharedStatus::loaded, this, reload);
}

QWidget* QuickStatusPage::makeSlots() {
    auto* const table = new QWidget(this);
    auto* const grid = new QGridLayout(table);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(kGrid);
    grid->setVerticalSpacing(kGrid / 2);
    grid->setColumnStretch(kMessage, 3);
    grid->setColumnStretch(kName, 2);
    grid->addWidget(new QLabel(tr("Text"), table), 0, kMessage);
    grid->addWidget(new QLabel(tr("Name of the button"), table), 0, kName);
    grid->addWidget(new QLabel(tr("Hot key"), table), 0, kHotKey);
    for (int slot = 0; slot < LocalStatus::kQuickCount; ++slot) {
        Slot& row = m_slots[static_cast<std::size_t>(slot)];
        const int line = 2 * slot + 1;
        const QString number = QString::number(slot + 1);
        grid->addWidget(new QLabel(number, table), line, kNumber);

        row.message = new QComboBox(table);
        row.text = new KeyFilterEdit(row.message);
        row.message->setObjectName(QStringLiteral("cmbStatus%1").arg(slot));
        row.message->setEditable(true);
        row.message->setInsertPolicy(QComboBox::NoInsert);
        row.message->setLineEdit(row.text);
        row.message->setCompleter(nullptr);
        row.message->setAccessibleName(tr("Text of quick status %1").arg(number));
        row.message->setToolTip(tr("What the others see, 2 to 25 characters"));
        row.message->setMinimumContentsLength(kLeastLetters);
        row.message->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        row.text->setAllowedCharacters(kTypedCharacters);
        row.text->setMaximumLength(LocalStatus::kLongestStatus);
        row.text->setPlaceholderText(tr("Not set"));
        grid->addWidget(row.message, line, kMessage);

        row.name = new KeyFilterEdit(table);
        row.name->setObjectName(QStringLiteral("fltQuickName%1").arg(slot));
        row.name->setAllowedCharacters(kTypedCharacters);
        row.name->setMaximumLength(LocalStatus::kLongestStatus);
        row.name->setAccessibleName(tr("Name of quick status %1").arg(number));
        row.name->setToolTip(
            tr("What stands on the button, 2 to 25 characters; the text itself when there is none"));
        grid->addWidget(row.name, line, kName);

        const auto changed = [this] { setModified(true); };
        connect(row.text, &QLineEdit::textEdited, this, changed);
        connect(row.name, &QLineEdit::textEdited, this, changed);
        // A button that has a text and no name takes the text for it.
        connect(row.text, &QLineEdit::editingFinished, this, [&row] {
            if (row.name->text().trimmed().isEmpty() && row.text->text().trimmed().size() > 1) {
                row.name->setText(row.text->text().trimmed());
            }
        });
        connect(row.message, &QComboBox::activated, this, [this, &row] {
            setModified(true);
            if (row.name->text().trimmed().isEmpty()) {
                row.name->setText(row.text->text());
            }
        });

        if (slot < QuickHotKeys::kSlots) {
            makeHotKey(slot);
            grid->addWidget(row.hotKey, line, kHotKey);
            grid->addWidget(row.notice, line + 1, kMessage, 1, kClear);
            auto* const link = new QPushButton(tr("Shortcut"), table);
            link->setObjectName(QStringLiteral("cmdShortcut%1").arg(slot));
            link->setAutoDefault(false);
            link->setToolTip(tr("Puts a link on your desktop that sets this status"));
            link->setAccessibleName(tr("Desktop shortcut for quick status %1").arg(number));
            grid->addWidget(link, line, kShortcut);
            connect(link, &QPushButton::clicked, this, [this, slot] { makeShortcut(slot); });
        }
        auto* const clear = new QPushButton(tr("Clear"), table);
        clear->setObjectName(QStringLiteral("cmdClearStatusKey%1").arg(slot));
        clear->setAutoDefault(false);
        clear->setToolTip(tr("Empties this quick status"));
        clear->setAccessibleName(tr("Clear quick status %1").arg(number));
        grid->addWidget(clear, line, kClear);
        connect(clear, &QPushButton::clicked, this, [this, slot] { clearSlot(slot); });
    }
    return table;
}

void QuickStatusPage::makeHotKey(int slot) {
    Slot& row = m_slots[static_cast<std::size_t>(slot)];
    row.hotKey = new QComboBox(this);
    row.hotKey->setObjectName(QStringLiteral("cmbHK%1").arg(slot));
    row.hotKey->setAccessibleName(tr("Hot key of quick status %1").arg(slot + 1));
    row.hotKey->setToolTip(tr("Sets this status also while you work in another program"));
    connect(row.hotKey, &QComboBox::activated, this, [this] { setModified(true); });
    row.notice = plain({}, this);
    row.notice->setObjectName(QStringLiteral("lblHK%1").arg(slot));
    QFont strong = row.notice->font();
    strong.setBold(true);
    row.notice->setFont(strong);
    row.notice->hide();
}

void QuickStatusPage::LoadQuickHotKeys() {
    for (int slot = 0; slot < QuickHotKeys::kSlots; ++slot) {
        QComboBox* const box = m_slots[static_cast<std::size_t>(slot)].hotKey;
        box->addItems(QuickHotKeys::LoadQuickHotKeys(slot));
        box->setEnabled(!m_station.hotKeys.restricted());
    }
}

void QuickStatusPage::LoadStatus() {
    m_loading = true;
    for (int slot = 0; slot < LocalStatus::kQuickCount; ++slot) {
        Slot& row = m_slots[static_cast<std::size_t>(slot)];
        const QuickStatus& quick = m_station.status.quick(slot);
        row.message->clear();
        int chosen = -1;
        for (const SharedStatusChoice& choice : m_station.sharedStatus.FillSharedStatusList()) {
            row.message->addItem(choice.label, choice.index);
            if (quick.Shared == QString::number(choice.index)) {
                chosen = row.message->count() - 1;
            }
        }
        row.message->setCurrentIndex(chosen);
        row.text->setText(quick.Message);
        row.name->setText(quick.Name);
        if (row.hotKey != nullptr) {
            // A code from afar may have no row.
            const int code = quick.HotKey.toInt();
            row.hotKey->setCurrentIndex(code >= 0 && code < row.hotKey->count() ? code : -1);
        }
    }
    m_loading = false;
    setModified(false);
    showNotices();
}

QString QuickStatusPage::roadText() const {
    if (m_station.hotKeys.restricted()) {
        return tr("Hot keys are locked by the administrator. F1 to F9 work inside the main window.");
    }
    switch (m_station.hotKeys.road()) {
    case HotKeyRoad::Desktop:
        return tr("Your desktop brings the hot keys, and may have given another key than the one chosen "
                  "here. F1 to F9 work inside the main window.");
    case HotKeyRoad::ForeignScreen:
        return tr("In this Wayland session hot keys need the desktop's own shortcut settings. Bind a key "
                  "there to one of these lines:\n    tslapp /s:0\n    tslapp /s:1\n    tslapp /s:2\n"
                  "F1 to F9 work inside the main window.");
    case HotKeyRoad::None:
    case HotKeyRoad::Screen:
        break;
    }
    return tr("Hot keys work in every program; F1 to F9 work inside the main window.");
}

void QuickStatusPage::showNotices() {
    for (int slot = 0; slot < QuickHotKeys::kSlots; ++slot) {
        const Slot& row = m_slots[static_cast<std::size_t>(slot)];
        const QString notice = m_station.hotKeys.notice(slot);
        row.notice->setText(notice);
        row.notice->setVisible(!notice.isEmpty());
    }
    m_road->setText(roadText());
}

void QuickStatusPage::setModified(bool modified) {
    if (m_loading) {
        return;
    }
    m_modified = modified;
    m_save->setEnabled(modified);
    emit modifiedChanged();
}

int QuickStatusPage::pickedShared(const Slot& slot) const {
    const int entry = slot.message->currentIndex();
    const bool stands = entry >= 0 && slot.message->itemText(entry) == slot.text->text();
    return stands ? slot.message->itemData(entry).toInt() : -1;
}

bool QuickStatusPage::SaveStatus() {
    std::array<QuickRow, LocalStatus::kQuickCount> rows;
    for (std::size_t slot = 0; slot < rows.size(); ++slot) {
        const Slot& from = m_slots[slot];
        // A text without a name takes itself for it, as one whose name is too short to be kept.
        const QString name = from.name->text().trimmed();
        rows[slot] = {name.size() < LocalStatus::kShortestStatus ? from.text->text() : name,
                      from.text->text(), pickedShared(from),
                      from.hotKey == nullptr ? 0 : from.hotKey->currentIndex()};
    }
    m_modified = false; // so that what is read back is shown
    const int wrong = m_station.status.SaveStatus(rows);
    if (wrong >= 0) {
        setModified(true);
        choose(wrong);
        return false;
    }
    return true;
}

void QuickStatusPage::choose(int slot) {
    if (slot < 0 || slot >= LocalStatus::kQuickCount) {
        return;
    }
    const Slot& row = m_slots[static_cast<std::size_t>(slot)];
    ensureWidgetVisible(row.message);
    row.message->setFocus();
    row.text->selectAll();
}

void QuickStatusPage::clearSlot(int slot) {
    Slot& row = m_slots[static_cast<std::size_t>(slot)];
    row.message->setCurrentIndex(-1);
    row.text->clear();
    row.name->clear();
    if (row.hotKey != nullptr) {
        row.hotKey->setCurrentIndex(0);
    }
    setModified(true);
    row.message->setFocus();
}

void QuickStatusPage::makeShortcut(int slot) {
    const Slot& row = m_slots[static_cast<std::size_t>(slot)];
    const Shortcuts::Answer answer = m_station.shortcuts.create(slot, row.name->text(), row.text->text());
    openBox(this, QMessageBox::Information, answer.caption, answer.text);
}

} // namespace tessel
