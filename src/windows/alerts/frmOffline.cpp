#include "windows/alerts/frmOffline.h"

#include "controls/list/ReportText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

frmOffline::frmOffline(const QStringList& names, const QString& group, QWidget* parent) : QDialog(parent) {
    constexpr int kGrid = 8;
    constexpr int kGroupChars = 60;
    setObjectName(QStringLiteral("frmOffline"));
    setWindowTitle(tr("Offline Users"));
    auto* const label =
        new QLabel(group.isEmpty()
                       ? QStringLiteral("The following users are offline and unable to receive your message.")
                       : QLatin1String("The following users in group ") + singleLine(group, kGroupChars) +
                             QLatin1String(" are offline and unable to receive your message."),
                   this);
    label->setObjectName(QStringLiteral("lblOffline"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* const list = new QListWidget(this);
    list->setObjectName(QStringLiteral("lstoffline"));
    list->setAccessibleName(tr("Offline users"));
    for (const QString& name : names) {
        list->addItem(singleLine(name));
    }
    auto* const buttons = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption) {
        auto* const button = new QPushButton(caption, this);
        button->setObjectName(QLatin1String(name));
        buttons->addWidget(button);
        return button;
    };
    auto* const edit = add("cmdEdit", tr("&Edit Group"));
    edit->setVisible(!group.isEmpty());
    connect(edit, &QPushButton::clicked, this, [this] {
        accept();
        emit editWanted();
    });
    connect(add("cmdRefresh", tr("&Refresh")), &QPushButton::clicked, this, [this] {
        emit refreshWanted();
        accept();
    });
    buttons->addStretch(1);
    auto* const ok = add("cmdOk", tr("OK"));
    ok->setDefault(true);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(label);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
}

} // namespace tessel
