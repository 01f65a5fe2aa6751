#include "windows/alerts/frmRecentOptions.h"

#include "engine/core/mod_Settings.h"
#include "windows/alerts/frmNotifications.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;

struct Row {
    int index; // of `chkRecentSave`
    Setting<bool> Settings::*setting;
    const char* label;
    bool indented; // belongs to the one above
};

// In the order of the dialog.
constexpr Row kRows[] = {
    {0, &Settings::Recents_ST, "Status Changes", false},
    {7, &Settings::Recents_STF, "Favorites Only", true},
    {1, &Settings::Recents_STC, "Cleared Status", false},
    {2, &Settings::Recents_DB, "DoorBell Alerts", false},
    {6, &Settings::Recents_DBG, "DoorBell Alerts to Everyone", false},
    {3, &Settings::Recents_PC, "Phone Call Alerts", false},
    {4, &Settings::Recents_MSG, "Messages", false},
    {5, &Settings::Recents_LU, "Location Occupied", false},
    {9, &Settings::Recents_LUF, "Favorites Only", true},
    {8, &Settings::Recents_LUC, "Location Occupied Open", false},
    {10, &Settings::Recents_STAG, "Status Tag Set", false},
    {11, &Settings::Recents_STAGC, "Status Tag Cleared", false},
};

} // namespace

frmRecentOptions::frmRecentOptions(Settings& settings, NotificationHistory& history, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmRecentOptions"));
    setWindowTitle(tr("Notification List Options"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid / 2); // all of it stays on a small screen in large letters
    layout->addWidget(new QLabel(tr("Keep these in the list of notifications:"), this));
    for (const Row& row : kRows) {
        auto* const box = new QCheckBox(QLatin1String(row.label), this);
        box->setObjectName(QStringLiteral("chkRecentSave%1").arg(row.index));
        Setting<bool>& setting = settings.*row.setting;
        box->setChecked(setting());
        connect(box, &QCheckBox::toggled, this, [&setting](bool on) { setting.set(on); });
        if (row.indented) {
            auto* const line = new QHBoxLayout;
            line->addSpacing(3 * kGrid);
            line->addWidget(box);
            layout->addLayout(line);
            box->setAccessibleName(box->text() + (row.setting == &Settings::Recents_STF
                                                      ? tr(", for status changes")
                                                      : tr(", for occupied")));
        } else {
            layout->addWidget(box);
        }
    }
    layout->addSpacing(kGrid);
    layout->addWidget(new QLabel(QStringLiteral("Delete all Notifications"), this));
    auto* const clear = new QPushButton(QStringLiteral("Clear Notifications List"), this);
    clear->setObjectName(QStringLiteral("cmdDelete"));
    clear->setAutoDefault(false);
    layout->addWidget(clear, 0, Qt::AlignLeft);
    connect(clear, &QPushButton::clicked, this,
            [this, &history] { askToClearRecents(history, this, QStringLiteral("Notifications")); });
    layout->addStretch(1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

} // namespace tessel
