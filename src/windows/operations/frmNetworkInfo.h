// The window with the facts of this location.
#pragma once

#include <QMainWindow>

class QPlainTextEdit;

namespace tessel {

class frmNetworkInfo : public QMainWindow {
    Q_OBJECT
public:
    // `text`: the facts, one a line.
    explicit frmNetworkInfo(const QString& text, QWidget* parent = nullptr);

private:
    void CreateCopy();
    void CreateEmail();

    QPlainTextEdit* m_text;
};

} // namespace tessel
