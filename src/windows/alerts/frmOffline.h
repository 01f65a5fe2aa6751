// The window that names the recipients who will not get a message.
#pragma once

#include <QDialog>
#include <QStringList>

namespace tessel {

class frmOffline : public QDialog {
    Q_OBJECT
public:
    // `group`: the name of the group that was chosen; empty for a selection.
    frmOffline(const QStringList& names, const QString& group, QWidget* parent = nullptr);

signals:
    void refreshWanted();
    // The user wants to change the group.
    void editWanted();
};

} // namespace tessel
