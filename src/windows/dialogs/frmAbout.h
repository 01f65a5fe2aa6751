// The window "About": what this is, and where its files stand.
#pragma once

#include <QDialog>

namespace tessel {

class Folders;
class Session;

class frmAbout : public QDialog {
    Q_OBJECT
public:
    frmAbout(const Folders& folders, Session& session, QWidget* parent = nullptr);
};

} // namespace tessel
