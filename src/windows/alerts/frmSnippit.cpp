#include "windows/alerts/frmSnippit.h"

#include "controls/edit/KeyFilterEdit.h"
#include "controls/list/EmptyHint.h"
#include "controls/list/ReportText.h"
#include "controls/look/ScreenPlacement.h"
#include "engine/alerts/mod_Snippets.h"
#include "engine/core/mod_Definitions.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr QSize kFirstSize(460, 380);
} // namespace

frmSnippit::frmSnippit(Snippets& snippets, QWidget* parent)
    : QDialog(parent), m_snippets(snippets), m_text(new KeyFilterEdit(this)), m_list(new QListWidget(this)),
      m_hint(new EmptyHint(m_list)) {
    setObjectName(QStringLiteral("frmSnippit"));
    setWindowTitle(tr("Snippets"));
    resize(sizeForLetters(*this, kFirstSize));
    m_text->setObjectName(QStringLiteral("cmbSnippet"));
    m_text->setAllowedCharacters(kTypedCharacters);
    m_text->setMaximumLength(Snippets::kLongestSnippet);
    m_text->setPlaceholderText(tr("Text of a new snippet"));
    m_list->setObjectName(QStringLiteral("lstSnippit"));
    m_list->setAccessibleName(tr("Snippets"));
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* const label = new QLabel(tr("&New snippet:"), this);
    label->setBuddy(m_text);
    auto* const save = addButton("cmdSave", tr("&Add"), tr("Put the text at the top of the list"));
    m_delete = addButton("cmdDelete", tr("&Delete"), tr("Remove the selected snippet"));
    m_up = addButton("cmdUP", tr("Move &Up"), tr("Move the selected snippet up"));
    m_down = addButton("cmdDown", tr("Move Do&wn"), tr("Move the selected snippet down"));
    auto* const close = addButton("cmdClose", tr("&Close"), {});

    auto* const top = new QHBoxLayout;
    top->addWidget(m_text, 1);
    top->addWidget(save);
    auto* const side = new QVBoxLayout;
    side->addWidget(m_up);
    side->addWidget(m_down);
    side->addWidget(m_delete);
    side->addStretch(1);
    side->addWidget(close);
    auto* const middle = new QHBoxLayout;
    middle->addWidget(m_list, 1);
    middle->addLayout(side);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, 2 * kGrid);
    layout->setSpacing(kGrid);
    layout->addWidget(label);
    layout->addLayout(top);
    layout->addLayout(middle, 1);

    connect(m_text, &KeyFilterEdit::enterPressed, this, &frmSnippit::save);
    connect(m_text, &KeyFilterEdit::escapePressed, this, &QDialog::reject);
    connect(save, &QPushButton::clicked, this, &frmSnippit::save);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    const auto remove = [this] {
        const int row = m_list->currentRow();
        m_snippets.remove(row);
        fill(row);
    };
    connect(m_delete, &QPushButton::clicked, this, remove);
    connect(new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, remove);
    connect(m_up, &QPushButton::clicked, this, [this] { fill(m_snippets.move(m_list->currentRow(), -1)); });
    connect(m_down, &QPushButton::clicked, this, [this] { fill(m_snippets.move(m_list->currentRow(), 1)); });
    connect(m_list, &QListWidget::currentRowChanged, this, &frmSnippit::showState);
    fill(-1);
    m_text->setFocus();
}

QPushButton* frmSnippit::addButton(const char* name, const QString& caption, const QString& tip) {
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

void frmSnippit::fill(int current) {
    m_list->clear();
    for (const QString& snippet : m_snippets.list()) {
        auto* const entry = new QListWidgetItem(singleLine(snippet), m_list);
        entry->setToolTip(plainTip(snippet));
    }
    const EmptyState none{tr("No snippets yet"), tr("Write one above and press Add."),
                          static_cast<int>(Image::Snippets)};
    m_hint->setState(m_list->count() == 0 ? none : EmptyState());
    m_list->setCurrentRow(std::min(current, m_list->count() - 1));
    showState();
}

void frmSnippit::save() {
    if (m_snippets.AddSnippit(m_text->text())) {
        m_text->clear();
        fill(0);
    }
    m_text->setFocus();
}

void frmSnippit::showState() {
    const int row = m_list->currentRow();
    m_delete->setEnabled(row >= 0);
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row < m_list->count() - 1);
}

} // namespace tessel
