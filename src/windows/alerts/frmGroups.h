// The window "Location Group n": name and members of a message group.
#pragma once

#include "engine/alerts/mod_Recipients.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace tessel {

class EmptyHint;
class Groups;
class KeyFilterEdit;
class ReportRecords;

class frmGroups : public QDialog {
    Q_OBJECT
public:
    // `slot`: 0 to 9. `locations`: the table of all locations; `ownSID` is left out of it.
    frmGroups(Groups& groups, const ReportRecords& locations, const QString& ownSID, int slot,
              QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QListWidget* makeList(const char* name, const QString& title);
    QWidget* createMovers();
    void LoadRecipientsAll(const ReportRecords& locations, const QString& ownSID);
    void LoadGroup();
    void Synclist();
    void move(QListWidget& from, QListWidget& to, bool all);
    void save();
    void free();
    void showState();

    Groups& m_groups;
    int m_slot;
    KeyFilterEdit* m_name;   // txtGroupName
    QListWidget* m_all;      // lstAll
    QListWidget* m_selected; // lstSelected
    EmptyHint* m_noneLeft = nullptr;
    EmptyHint* m_noMembers = nullptr;
    QLabel* m_remark;
    QPushButton* m_rightOne = nullptr;
    QPushButton* m_rightAll = nullptr;
    QPushButton* m_leftOne = nullptr;
    QPushButton* m_leftAll = nullptr;
};

} // namespace tessel
