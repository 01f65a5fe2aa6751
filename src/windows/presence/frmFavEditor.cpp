#include "windows/presence/frmFavEditor.h"

#include "controls/list/EmptyHint.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/presence/mod_Favorites.h"
#include "windows/dialogs/boxes.h"
#include "windows/presence/PresenceFields.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessel {

namespace {
constexpr int kLeastLetters = 40; // of a name
constexpr int kLeastLines = 10;
} // namespace

frmFavEditor::frmFavEditor(Favorites& favorites, const Tones& tones, QWidget* parent)
    : QDialog(parent), m_favorites(favorites), m_tones(tones), m_list(new QListWidget(this)),
      m_none(new EmptyHint(m_list)),
      m_show(button(QStringLiteral("cmdShow"), tr("&Show…"), tr("What is stored of this favorite"), this)),
      m_remove(
          button(QStringLiteral("cmdRemove"), tr("&Remove"), tr("Remove this favorite (Delete)"), this)) {
    m_list->setObjectName(QStringLiteral("lstFavorite"));
    m_list->setAccessibleName(tr("Favorites"));
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setUniformItemSizes(true);
    m_list->setMinimumSize(kLeastLetters * m_list->fontMetrics().averageCharWidth(),
                           kLeastLines * m_list->fontMetrics().lineSpacing());
    auto* const close = button(QStringLiteral("cmdClose"), tr("&Close"), {}, this);
    QVBoxLayout* const layout = dialogLayout(*this);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttonRow({m_show, m_remove, close}));

    connect(m_list, &QListWidget::itemDoubleClicked, this, &frmFavEditor::ShowFavorite);
    connect(m_show, &QPushButton::clicked, this, &frmFavEditor::ShowFavorite);
    connect(m_remove, &QPushButton::clicked, this, &frmFavEditor::RemoveFavorite);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_favorites, &Favorites::changed, this, &frmFavEditor::LoadFavorites);
    LoadFavorites();
    m_list->setFocus();
}

void frmFavEditor::LoadFavorites() {
    const int row = m_list->currentRow();
    m_list->clear();
    for (const int slot : m_favorites.usedSlots()) {
        const Favorite& favorite = m_favorites.slot(slot);
        auto* const item = new QListWidgetItem(favorite.Location.simplified(), m_list);
        item->setData(Qt::UserRole, slot);
    }
    m_list->setCurrentRow(std::min(std::max(row, 0), m_list->count() - 1));
    const EmptyState none{tr("No favorites have been selected"),
                          tr("Right-click a location under Home and choose Add to Favorites."),
                          static_cast<int>(Image::Favorites)};
    m_none->setState(m_list->count() == 0 ? none : EmptyState());
    m_show->setEnabled(m_list->count() > 0);
    m_remove->setEnabled(m_list->count() > 0);
    RefreshCaption();
}

void frmFavEditor::RefreshCaption() {
    setWindowTitle(QStringLiteral("Favorites (%1)").arg(m_list->count()));
}

int frmFavEditor::currentSlot() const {
    const QListWidgetItem* const item = m_list->currentItem();
    return item == nullptr ? -1 : item->data(Qt::UserRole).toInt();
}

void frmFavEditor::ShowFavorite() {
    const int slot = currentSlot();
    if (slot < 0) {
        return;
    }
    const Favorite favorite = m_favorites.slot(slot);
    const QStringList tones = m_tones.FillToneList(QStringLiteral("Default"));
    const int tone = favorite.Tone.toInt();
    const QString sound = tone >= 0 && tone < tones.size() ? tones.at(tone) : favorite.Tone;
    const QStringList lines{QStringLiteral("Slot: %1").arg(slot),
                            QStringLiteral("Location: ") + favorite.Location.simplified(),
                            QStringLiteral("SID: ") + favorite.SID.simplified(),
                            QStringLiteral("Sound: ") + sound,
                            {},
                            QStringLiteral("Delete?  ")};
    openQuestion(this, QMessageBox::Question, QStringLiteral("Favorite Information"), lines.join(u'\n'), this,
                 [this, slot, SID = favorite.SID] { remove(slot, SID); });
}

void frmFavEditor::RemoveFavorite() {
    if (const int slot = currentSlot(); slot >= 0) {
        remove(slot, m_favorites.slot(slot).SID);
    }
}

void frmFavEditor::remove(int slot, const QString& SID) {
    m_favorites.RemoveFavoriteSlot(slot, SID);
}

void frmFavEditor::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_list->hasFocus()) {
            ShowFavorite();
            return;
        }
        break;
    case Qt::Key_Delete:
        // It asks nothing: a key that is held would empty the whole list.
        if (!event->isAutoRepeat()) {
            RemoveFavorite();
        }
        return;
    default:
        break;
    }
    QDialog::keyPressEvent(event);
}

} // namespace tessel
