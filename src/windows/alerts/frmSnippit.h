// The window "Snippets": the texts kept for quick entry.
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tessel {

class EmptyHint;
class KeyFilterEdit;
class Snippets;

class frmSnippit : public QDialog {
    Q_OBJECT
public:
    explicit frmSnippit(Snippets& snippets, QWidget* parent = nullptr);

private:
    QPushButton* addButton(const char* name, const QString& caption, const QString& tip);
    void fill(int current);
    void save();
    void showState();

    Snippets& m_snippets;
    KeyFilterEdit* m_text; // cmbSnippet
    QListWidget* m_list;   // lstSnippit
    EmptyHint* m_hint;
    QPushButton* m_delete = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
};

} // namespace tessel
