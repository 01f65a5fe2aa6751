// The window with the facts of this location.
#pragma once

#include <QMainWindow>

class QPlainTextEdit;

namespace tessel {

class Station;

class frmNetworkInfo : public QMainWindow {
    Q_OBJECT
public:
    explicit frmNetworkInfo(Station& station, QWidget* parent = nullptr);

private:
    void CreateCopy();
    void CreateEmail();

    Station& m_station;
    QPlainTextEdit* m_text;
};

} // namespace tessel
