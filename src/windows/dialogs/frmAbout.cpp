#include "windows/dialogs/frmAbout.h"

#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Folders.h"
#include "engine/ports/cSession.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kIconSize = 64;
constexpr int kLineCharacters = 56;

QLabel* fact(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    const int width = kLineCharacters * label->fontMetrics().averageCharWidth();
    label->setMinimumSize(width, label->heightForWidth(width));
    return label;
}

} // namespace

frmAbout::frmAbout(const Folders& folders, Session& session, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About %1").arg(kProductName));

    auto* const picture = new QLabel(this);
    picture->setPixmap(QIcon(QStringLiteral(":/icons/tessel.svg")).pixmap(kIconSize, kIconSize));
    auto* const name = new QLabel(kProductName, this);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    name->setFont(large);
    auto* const purpose =
        new QLabel(tr("Presence, alerts and messages for the rooms of one office, without a server"), this);
    purpose->setWordWrap(true);
    auto* const words = new QVBoxLayout;
    words->addWidget(name);
    words->addWidget(purpose);
    auto* const head = new QHBoxLayout;
    head->setSpacing(2 * kGrid);
    head->addWidget(picture, 0, Qt::AlignTop);
    head->addLayout(words, 1);

    auto* const facts = new QFormLayout;
    facts->setLabelAlignment(Qt::AlignLeft);
    facts->setVerticalSpacing(kGrid);
    facts->addRow(tr("Version:"), fact(QLatin1String(kVersion), this));
    facts->addRow(tr("Licence:"),
                  fact(tr("All rights are with the developers of %1.").arg(kProductName), this));
    facts->addRow(
        tr("Libraries:"),
        fact(tr("Qt %1 (LGPL 3), XCB (MIT); for sounds libsndfile and PulseAudio's client (LGPL 2.1)")
                 .arg(QLatin1String(qVersion())),
             this));
    auto* const folder = new QPushButton(tr("&Show"), this);
    folder->setObjectName(QStringLiteral("cmdDataFolder"));
    folder->setAutoDefault(false);
    folder->setToolTip(tr("Opens the folder of your settings, messages and history"));
    connect(folder, &QPushButton::clicked, this, [&folders, &session] { session.openPath(folders.data()); });
    facts->addRow(tr("Data folder:"), fact(folders.data(), this));
    auto* const row = new QHBoxLayout;
    row->addWidget(folder);
    row->addStretch(1);
    facts->addRow(QString(), row);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(2 * kGrid);
    layout->addLayout(head);
    layout->addLayout(facts);
    layout->addStretch(1);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setFocus();
}

} // namespace tessel
