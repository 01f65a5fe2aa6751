#include "windows/dialogs/frmWelcome.h"

#include "controls/edit/ColorTagPicker.h"
#include "controls/edit/KeyFilterEdit.h"
#include "engine/core/mod_Limits.h"
#include "engine/ports/cWindows.h"
#include "engine/station.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {

constexpr int kGrid = 8;
constexpr int kLineCharacters = 58;
constexpr char kNameText[] =
    "This computer has successfully installed Tessel Status. Please enter the name by which "
    "the other locations will know this one, for example Front Desk or Room 1.";
constexpr char kColorText[] =
    "You may also choose a location color now. Locations are grouped and sorted according "
    "to their colored tabs.";
constexpr char kDoorBellText[] =
    "If this is a front office location you can add the DoorBell icon to the status bar "
    "for quick notification of patient arrivals.";

QLabel* paragraph(const char* text, QWidget* parent) {
    auto* const label = new QLabel(QString::fromUtf8(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // A dialog does not ask its labels how high they get once they wrap.
    const int width = kLineCharacters * label->fontMetrics().averageCharWidth();
    label->setMinimumSize(width, label->heightForWidth(width));
    return label;
}

} // namespace

frmWelcome::frmWelcome(Station& station) : m_station(station), m_name(new KeyFilterEdit(this)) {
    setWindowTitle(tr("Welcome to Tessel Status"));
    std::vector<QColor> colors;
    for (const Argb color : kTagColors) {
        colors.emplace_back(QRgb(color));
    }
    m_color = new ColorTagPicker(colors, tr("No &color"), this);
    m_color->setObjectName(QStringLiteral("ColorTag"));
    m_color->setChosen(m_station.own.TAG - 1);
    m_doorBell = new QCheckBox(tr("Add the &DoorBell icon"), this);
    m_doorBell->setObjectName(QStringLiteral("chkDoorBell_Nav"));
    m_doorBell->setChecked(m_station.settings.Settings_DBNAV());
    m_name->setAllowedCharacters(kNameCharacters);
    m_name->setMaximumLength(kLongestLocation);
    m_name->setText(m_station.profile.storedName());
    m_name->setAccessibleName(tr("Name of this location"));
    m_name->selectAll();

    auto* const title = new QLabel(tr("Welcome to Tessel Status"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    title->setFont(large);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOk"));
    ok->setDefault(true);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * kGrid, 2 * kGrid, 3 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(title);
    layout->addSpacing(kGrid);
    layout->addWidget(paragraph(kNameText, this));
    layout->addWidget(m_name);
    layout->addSpacing(2 * kGrid);
    layout->addWidget(paragraph(kColorText, this));
    layout->addWidget(m_color);
    layout->addSpacing(2 * kGrid);
    layout->addWidget(paragraph(kDoorBellText, this));
    layout->addWidget(m_doorBell);
    layout->addSpacing(kGrid);
    layout->addStretch(1);
    layout->addWidget(buttons);
    m_name->setFocus();

    const auto allowOk = [this, ok] { ok->setEnabled(!m_name->text().trimmed().isEmpty()); };
    connect(m_name, &QLineEdit::textChanged, this, allowOk);
    connect(ok, &QPushButton::clicked, this, &frmWelcome::SaveUserName);
    allowOk();
}

void frmWelcome::SaveUserName() {
    const int color = m_color->chosen();
    m_station.profile.SaveWelcome({m_name->text(), color < 0 ? kNoTag : color + 1, m_doorBell->isChecked()});
    m_station.windows.show({WindowId::Main});
    accept();
    deleteLater();
}

void frmWelcome::reject() {
    if (!m_station.own.exiting) {
        m_station.tmrExit.setEnabled(true);
    }
    QDialog::reject();
}

} // namespace tessel
