// The maintenance window "Active Connections": the endpoint table as it is.
#pragma once

#include "controls/look/Images.h"
#include "records/cReportRecords.h"

#include <QMainWindow>

class QLabel;

namespace tessel {

class Station;
class PromptEdit;
class ReportControl;

class frmEndpoints : public QMainWindow {
    Q_OBJECT
public:
    explicit frmEndpoints(Station& station);

    ReportControl* grid() const { return m_grid; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void createMenus();
    void createGrid();
    void refreshCaption();
    void showRow(const ReportRecordPtr& record);
    void askSIDReset();
    QWidget* createIdentityNotice();
    void showIdentityNotice();
    void openLog();

    Station& m_station;
    PromptEdit* m_filter; // txtFilter
    ReportControl* m_grid;
    QWidget* m_identity = nullptr; // shown while another computer has the own SID
    QLabel* m_identityText = nullptr;
    Images m_images;
    double m_scale = 1; // of widths, by the size of the desktop's font
};

} // namespace tessel
