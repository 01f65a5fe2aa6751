// All favorites, those that are off line among them.
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tessel {

class EmptyHint;
class Favorites;
class Tones;

class frmFavEditor : public QDialog {
    Q_OBJECT
public:
    frmFavEditor(Favorites& favorites, const Tones& tones, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LoadFavorites();
    void RefreshCaption();
    void ShowFavorite();
    void RemoveFavorite();
    int currentSlot() const; // -1: none
    void remove(int slot, const QString& SID);

    Favorites& m_favorites;
    const Tones& m_tones;
    QListWidget* m_list; // lstFavorite
    EmptyHint* m_none;
    QPushButton* m_show;
    QPushButton* m_remove;
};

} // namespace tessel
