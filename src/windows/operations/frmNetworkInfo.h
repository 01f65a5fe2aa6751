// The window with the facts of this location, its log, and a report of both for whoever helps.
#pragma once

#include <QMainWindow>

class QLabel;
class QPlainTextEdit;

namespace tessel {

class Diagnostics;
class Folders;

class frmNetworkInfo : public QMainWindow {
    Q_OBJECT
public:
    frmNetworkInfo(const Diagnostics& diagnostics, const Folders& folders, QWidget* parent = nullptr);

    // Writes the report, and says in the foot how it went.
    void saveReport(const QString& path);

private:
    void createPanes();
    void createMenus();
    void DisplayInformation();
    void CreateCopy();
    void CreateEmail();
    void askReport();

    const Diagnostics& m_diagnostics;
    const Folders& m_folders;
    QPlainTextEdit* m_text;
    QLabel* m_sound;
    QPlainTextEdit* m_log;
};

} // namespace tessel
