// The window "Shared Status Editor": the office's list of statuses, edited and sent to all.
#pragma once

#include "engine/presence/mod_SharedStatus.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QListWidget;
class QPushButton;

namespace tessel {

class Admin;
class KeyFilterEdit;
class NetworkMC;
class Tones;
struct OwnState;

class frmStatusButtonEditor : public QDialog {
    Q_OBJECT
public:
    frmStatusButtonEditor(const OwnState& own, const Admin& admin, NetworkMC& network, Tones& tones,
                          SharedStatus& shared, QWidget* parent = nullptr);

private:
    struct Row {
        KeyFilterEdit* text; // txtStatusMessage
        QComboBox* tone;     // cmbStatus
    };

    QWidget* createRows();
    QWidget* createAuthor();
    void createButtons();
    void LoadStatus();
    // False, with the focus in the field, when a text is one character long.
    bool SaveStatus();
    void ResetFormData();
    void LoadAuthorInformation();
    void LoadAdminRestrictions();
    void TogglePushButtons();
    void setModified(bool modified);
    void playTone(int row);
    void ask(const QString& caption, const QString& question, void (frmStatusButtonEditor::*act)());
    void push();
    void removeAll();
    void deleteFile();
    std::vector<SharedStatus::Row> rows() const;

    const OwnState& m_own;
    const Admin& m_admin;
    NetworkMC& m_network;
    Tones& m_tones;
    SharedStatus& m_shared;
    std::vector<Row> m_rows;
    QListWidget* m_author;    // lstAuthor
    QPushButton* m_save;      // cmdSave
    QPushButton* m_saveQuit;  // cmdSaveQuit
    QPushButton* m_cancel;    // cmdCancel
    QPushButton* m_delete;    // cmdDelete
    QPushButton* m_push;      // cmdPush
    QPushButton* m_removeAll; // cmdRemoveAll
    bool m_restricted = false;
    bool m_modified = false;
    bool m_loading = false;
};

} // namespace tessel
