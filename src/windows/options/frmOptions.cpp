#include "windows/options/frmOptions.h"

#include "controls/edit/ColorTagPicker.h"
#include "controls/edit/KeyFilterEdit.h"
#include "controls/look/SideTabs.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_NetworkGroups.h"
#include "engine/ports/cSession.h"
#include "engine/station.h"
#include "windows/options/OptionPage.h"
#include "windows/options/QuickStatusPage.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kLineCount = 36; // of text, the window's first height
constexpr int kFrame = 48;     // what a window manager puts around it, at most

struct PageRow {
    const char* caption;
    const char* control;
};
constexpr std::array<PageRow, kOptionsPages> kPages{{{"General", "TabGeneral"},
                                                     {"Quick statuses", "TabStatus"},
                                                     {"Notices", "TabNotices"},
                                                     {"Popups", "TabPopups"},
                                                     {"Messages", "TabMessages"},
                                                     {"Sounds and history", "TabSounds"},
                                                     {"Network", "TabNetwork"},
                                                     {"Advanced", "TabAdvanced"}}};

constexpr char kIdentity[] = "Name and color";
constexpr char kStart[] = "Start";
constexpr char kPlaces[] = "Places of the popups";
constexpr char kGroup[] = "Network group";
constexpr char kConnection[] = "Connection";
constexpr char kFiles[] = "Files";

QPushButton* button(const QString& caption, const char* name, const QString& tip, QWidget* parent) {
    auto* const made = new QPushButton(caption, parent);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
}

QLabel* paragraph(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

// Two controls beside each other as one row.
QWidget* besides(QWidget* first, QWidget* second) {
    auto* const pair = new QWidget;
    auto* const layout = new QHBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGrid);
    layout->addWidget(first);
    layout->addWidget(second);
    layout->addStretch(1);
    pair->setFocusProxy(first);
    return pair;
}

} // namespace

frmOptions::frmOptions(Station& station, QWidget* parent)
    : QDialog(parent), m_station(station), m_search(new QLineEdit(this)), m_tabs(new SideTabs(this)),
      m_nothing(new QLabel(tr("No option holds these words"), this)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Options"));
    m_search->setObjectName(QStringLiteral("txtSearchOptions"));
    m_search->setPlaceholderText(tr("Search the options"));
    m_search->setAccessibleName(tr("Search the options"));
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    connect(m_search, &QLineEdit::textChanged, this, &frmOptions::search);
    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    m_tabs->setObjectName(QStringLiteral("tbOptions"));
    addPages();
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->hide();

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &frmOptions::reject);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(paragraph(tr("Changes take effect at once, unless an option says otherwise."), this), 1);
    foot->addWidget(buttons);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kGrid, kGrid, kGrid, kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(m_search);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_nothing, 1);
    layout->addLayout(foot);
    applyRestrictions();
    // As wide as the widest page, so that none has to be moved sideways on a screen that has the room.
    int widest = 0;
    for (const OptionPage* const made : m_pages) {
        widest = std::max(widest, made->widget()->sizeHint().width());
    }
    const QSize wanted(widest + m_tabs->tabBar()->sizeHint().width() + 6 * kGrid,
                       kLineCount * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() - QSize(kFrame, kFrame)));
    m_tabs->tabBar()->setFocus();
}

void frmOptions::addPages() {
    for (int index = 0; index < kOptionsPages; ++index) {
        OptionPage* made = nullptr;
        if (index == static_cast<int>(OptionsPage::QuickStatuses)) {
            made = m_quick = new QuickStatusPage(m_station, this);
        } else {
            made = new OptionPage(m_station, this);
        }
        m_pages[static_cast<std::size_t>(index)] = made;
        const PageRow& row = kPages[static_cast<std::size_t>(index)];
        made->setObjectName(QLatin1String(row.control));
        m_tabs->addTab(made, tr(row.caption));
    }
    addLocation(page(OptionsPage::General));
    for (const OptionRow& row : optionRows()) {
        page(row.page).addOption(row);
    }
    addUpdates(page(OptionsPage::General));
    addFavorites(page(OptionsPage::Notices));
    addPopups(page(OptionsPage::Popups));
    addSounds(page(OptionsPage::Sounds));
    addNetwork(page(OptionsPage::Network));
    addAdvanced(page(OptionsPage::Advanced));
    for (OptionPage* const made : m_pages) {
        if (made != m_quick) {
            made->finish();
        }
    }
}

// What is done about the name and the color takes a second in which events go on: it must not hang on
// this window, which may be gone by then.
void frmOptions::addLocation(OptionPage& to) {
    auto* const name = new KeyFilterEdit(this);
    name->setObjectName(QStringLiteral("txtUserName"));
    name->setAllowedCharacters(kNameCharacters);
    name->setMaximumLength(kLongestLocation);
    name->setText(m_station.own.location);
    name->setToolTip(tr("How the other locations call this one"));
    auto* const save =
        button(tr("Sa&ve name"), "cmdSaveUserName", tr("Tells all locations the new name"), this);
    save->setEnabled(false);
    connect(name, &QLineEdit::textChanged, save, [this, name, save] {
        const QString text = name->text().trimmed();
        save->setEnabled(!text.isEmpty() && text != m_station.own.location);
    });
    connect(name, &KeyFilterEdit::enterPressed, save, &QPushButton::click);
    connect(save, &QPushButton::clicked, this, [this, name, save] {
        save->setEnabled(false);
        QTimer::singleShot(0, &m_station, [&station = m_station, text = name->text()] {
            station.profile.SaveUserName(text);
        });
    });
    to.addRow(QLatin1String(kIdentity), tr("&Name of this location:"), besides(name, save),
              tr("user name location rename"));
    // Locked by the administrator, the name cannot be changed, however it is typed.
    const bool locked = m_station.admin.AdminFilePresent && Admin::restricted(m_station.admin.UserChange);
    save->setVisible(!locked);
    name->setReadOnly(locked || Admin::restricted(m_station.admin.UserName));
    if (name->isReadOnly()) {
        name->setToolTip(kLockedByAdmin);
    }

    std::vector<QColor> colors;
    colors.reserve(kTagColors.size());
    for (const Argb color : kTagColors) {
        colors.emplace_back(QRgb(color));
    }
    auto* const picker = new ColorTagPicker(colors, tr("No &color"), this);
    picker->setObjectName(QStringLiteral("ColorTag"));
    picker->setToolTip(tr("Locations are grouped and sorted by their color"));
    picker->setChosen(m_station.own.TAG - 1);
    // One walks over many colors by the arrows before one stays.
    auto* const settled = new QTimer(this);
    settled->setSingleShot(true);
    settled->setInterval(700);
    const auto store = [this, picker] {
        const int tag = picker->chosen() < 0 ? kNoTag : picker->chosen() + 1;
        if (tag != m_station.own.TAG) {
            QTimer::singleShot(0, &m_station,
                               [&station = m_station, tag] { station.profile.setColorTag(tag); });
        }
    };
    connect(picker, &ColorTagPicker::chosenChanged, settled, qOverload<>(&QTimer::start));
    connect(settled, &QTimer::timeout, this, store);
    connect(this, &QDialog::finished, this, store);
    to.addRow(QLatin1String(kIdentity), tr("Co&lor:"), picker, tr("colour tag group"));

    auto* const note = button(tr("Clear location note"), "cmdClearNote",
                              tr("Takes away the note that stands under your name"), this);
    const auto offerNote = [this, note] { note->setEnabled(!m_station.own.note.isEmpty()); };
    offerNote();
    connect(&m_station.presence, &OwnPresence::changed, note, offerNote);
    connect(note, &QPushButton::clicked, this, [this, note] {
        m_station.profile.ClearNote();
        note->setEnabled(false);
    });
    to.addRow(QLatin1String(kIdentity), {}, note, tr("note remove delete"));

    auto* const start = new QCheckBox(tr("Start with my session"), this);
    start->setObjectName(QStringLiteral("chkAutomaticallyStart"));
    start->setToolTip(tr("A location is reachable only while the program runs"));
    start->setChecked(m_station.session.autoStart());
    connect(start, &QCheckBox::toggled, this, [this](bool on) { m_station.session.SetAutoStart(on); });
    to.addRow(QLatin1String(kStart), {}, start, tr("autostart automatically login boot"));
}

void frmOptions::addUpdates(OptionPage& to) {
    auto* const check =
        button(tr("Check for &updates now"), "PusCheckFor", tr("Starts the update helper"), this);
    auto* const configure =
        button(tr("Update options…"), "cmdUpdateOptions", tr("Settings of the update helper"), this);
    const bool there = m_station.updates.allowed();
    check->setEnabled(there);
    configure->setEnabled(there);
    connect(check, &QPushButton::clicked, this, [this] { m_station.updates.start(UpdateRun::CheckNow); });
    connect(configure, &QPushButton::clicked, this,
            [this] { m_station.updates.start(UpdateRun::Configure); });
    to.addRow(QLatin1String(kSoftwareUpdates), {}, besides(check, configure), tr("update version software"));
    if (!there) {
        to.addText(QLatin1String(kSoftwareUpdates),
                   paragraph(tr("There is no update helper beside the program."), this));
    }
    to.group(QLatin1String(kSoftwareUpdates))->setObjectName(QStringLiteral("GroSoftwareUpdates"));
}

void frmOptions::addFavorites(OptionPage& to) {
    auto* const list = button(tr("&My favorites…"), "cmdFavorites",
                              tr("All favorites, also those that are off line; each has a tone and popups of "
                                 "its own in its Favorite Options"),
                              this);
    connect(list, &QPushButton::clicked, this, [this] { m_station.windows.show({WindowId::FavEditor}); });
    to.addRow(QLatin1String(kStatusesOfOthers), {}, list, tr("favorites list edit remove tone"));
}

void frmOptions::addPopups(OptionPage& to) {
    auto* const show =
        button(tr("Show a popup"), "cmdTestPopup", tr("To see how popups look, and to move one"), this);
    auto* const reset = button(tr("Reset the places of the popups"), "cmdREsetPopupAlertLocations",
                               tr("All popups come up in the lower right corner again"), this);
    connect(show, &QPushButton::clicked, this, [this] {
        Notice notice;
        notice.label = m_station.own.location;
        notice.text = tr("This is how an alert looks.");
        notice.time = m_station.own.startTime;
        notice.caption = kProductName;
        notice.kind = NoticeKind::DoorBell;
        notice.name = m_station.own.location;
        m_station.popups.ShowNotifyPopupAlert(notice);
    });
    connect(reset, &QPushButton::clicked, this, [this] { m_station.popups.ResetPopupAlertPositions(true); });
    to.addRow(QLatin1String(kPlaces), {}, besides(show, reset), tr("popup position place reset screen test"));
}

void frmOptions::addSounds(OptionPage& to) {
    auto* const play = button(tr("&Play a tone"), "cmdPlayTone", tr("The tone of the doorbell"), this);
    connect(play, &QPushButton::clicked, this,
            [this] { m_station.tones.PlayTone(QStringLiteral("DoorbellOne")); });
    to.addRow(QStringLiteral("Sounds"), {}, play, tr("test sound speakers hear"));
    auto* const kinds = button(tr("Choose what the list &keeps…"), "cmdRecentOptions",
                               tr("Which kinds of notifications are kept, and clearing them"), this);
    connect(kinds, &QPushButton::clicked, this,
            [this] { m_station.windows.show({WindowId::RecentOptions}); });
    to.addRow(QStringLiteral("Notification history"), {}, kinds,
              tr("recents notification list options clear"));
}

void frmOptions::addNetwork(OptionPage& to) {
    to.addText(QLatin1String(kGroup),
               paragraph(tr("Locations see only those of their own network group. Choose the same one "
                            "everywhere in the office."),
                         this));
    // LoadNetworkSettings
    auto* const groups = new QComboBox(this);
    groups->setObjectName(QStringLiteral("cmbNetworkGroup"));
    groups->setToolTip(tr("Which group this location belongs to"));
    for (const NetworkGroup& group : kNetworkGroups) {
        groups->addItem(QLatin1String(group.name));
    }
    groups->setCurrentIndex(m_station.network.networkGroupRow());
    auto* const save = button(tr("&Use this group"), "cmdSaveNetwork",
                              tr("Leaves the present group and joins this one; takes some seconds"), this);
    save->setEnabled(false);
    connect(groups, &QComboBox::currentIndexChanged, save,
            [this, save](int row) { save->setEnabled(row != m_station.network.networkGroupRow()); });
    connect(save, &QPushButton::clicked, this, [this, groups, save] {
        save->setEnabled(false);
        QTimer::singleShot(0, &m_station, [&station = m_station, row = groups->currentIndex()] {
            station.network.SaveNetwork(row);
        });
    });
    to.addRow(QLatin1String(kGroup), tr("&Group:"), besides(groups, save), tr("network group multicast"));

    const auto opens = [this, &to](const QString& caption, const char* name, const QString& tip,
                                   WindowId window, const QString& words) {
        QPushButton* const made = button(caption, name, tip, this);
        connect(made, &QPushButton::clicked, this, [this, window] { m_station.windows.show({window}); });
        to.addRow(QLatin1String(kConnection), {}, made, words);
    };
    opens(tr("Network &adapter…"), "cmdAdapters", tr("Which of this computer's networks is used"),
          WindowId::Adapters, tr("adapter ip address interface card"));
    opens(tr("Active &connections…"), "cmdEndpoints", tr("All locations with their last sign of life"),
          WindowId::Endpoints, tr("endpoints connections locations SID reset"));
    opens(tr("&Information…"), "cmdInformation", tr("The facts that support asks for"), WindowId::NetworkInfo,
          tr("diagnostics support version"));
}

void frmOptions::addAdvanced(OptionPage& to) {
    auto* const folder = button(tr("Show the data &folder"), "cmdDataFolder",
                                tr("Settings, messages, history and the log stand there"), this);
    connect(folder, &QPushButton::clicked, this,
            [this] { m_station.session.openPath(m_station.folders.data()); });
    to.addRow(QLatin1String(kFiles), {}, folder, tr("files user.cfg error.txt log"));
}

void frmOptions::applyRestrictions() {
    const Admin& admin = m_station.admin;
    if (!admin.AdminFilePresent) {
        return;
    }
    const auto off = [this](OptionsPage page) {
        const int index = static_cast<int>(page);
        m_tabs->setTabEnabled(index, false);
        m_tabs->setTabToolTip(index, kLockedByAdmin);
    };
    if (Admin::restricted(admin.NetworkSettings)) {
        off(OptionsPage::Network);
    }
    if (Admin::restricted(admin.AdvancedSettings)) {
        off(OptionsPage::Advanced);
    }
    if (Admin::restricted(admin.Updates)) {
        QGroupBox* const updates = page(OptionsPage::General).group(QLatin1String(kSoftwareUpdates));
        updates->setProperty("restricted", true);
        updates->hide();
    }
}

void frmOptions::take(const WindowRequest& request) {
    if (request.slot >= 0) {
        showPage(OptionsPage::QuickStatuses);
        // Once the window is up, which takes the focus first.
        QTimer::singleShot(0, m_quick, [quick = m_quick, slot = request.slot] { quick->choose(slot); });
    } else if (request.page > 0 && request.page < kOptionsPages) {
        showPage(static_cast<OptionsPage>(request.page));
    }
}

void frmOptions::showPage(OptionsPage page) {
    m_search->clear();
    const int index = static_cast<int>(page);
    if (m_tabs->isTabEnabled(index)) {
        m_tabs->setCurrentIndex(index);
    }
}

void frmOptions::search(const QString& text) {
    const QStringList words = text.toLower().split(u' ', Qt::SkipEmptyParts);
    int first = -1;
    bool here = false;
    for (int index = 0; index < kOptionsPages; ++index) {
        const bool matches = m_pages[static_cast<std::size_t>(index)]->showMatching(words) > 0;
        // A locked page is no place to lead to.
        const bool found = matches && (words.isEmpty() || m_tabs->isTabEnabled(index));
        m_tabs->setTabVisible(index, found);
        if (found && m_tabs->isTabEnabled(index)) {
            first = first < 0 ? index : first;
            here = here || index == m_tabs->currentIndex();
        }
    }
    if (first >= 0 && !here) {
        m_tabs->setCurrentIndex(first);
    }
    m_tabs->setVisible(first >= 0);
    m_nothing->setVisible(first < 0);
}

bool frmOptions::saveAll() {
    if (m_station.own.exiting || !m_quick->modified() || m_quick->SaveStatus()) {
        return true;
    }
    showPage(OptionsPage::QuickStatuses);
    m_quick->SaveStatus(); // puts the focus into the field
    return false;
}

void frmOptions::reject() {
    // The first Escape ends a search.
    if (!m_search->text().isEmpty() && m_search->hasFocus()) {
        m_search->clear();
    } else if (saveAll()) {
        QDialog::reject();
    }
}

// Some of the settings have a button or a menu elsewhere, too, and this window may stay open meanwhile.
void frmOptions::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        for (OptionPage* const page : m_pages) {
            if (page != nullptr) {
                page->readSettings();
            }
        }
    }
}

void frmOptions::closeEvent(QCloseEvent* event) {
    if (saveAll()) {
        QDialog::closeEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace tessel
