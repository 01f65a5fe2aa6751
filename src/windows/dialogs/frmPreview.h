// The print preview: how a document will look on paper, and the way to the printer.
#pragma once

#include "controls/print/PrintDocument.h"

#include <QDialog>
#include <QPrinter>

class QAction;
class QLabel;
class QPrintPreviewWidget;

namespace tessel {

class frmPreview : public QDialog {
    Q_OBJECT
public:
    // `printers`: whether printers can be looked for. Without, there is the way to a file alone.
    explicit frmPreview(PrintDocument document, bool printers = true, QWidget* parent = nullptr);

    const PrintDocument& document() const { return m_document; }

private:
    void createBar();
    void showPages();
    void turn(int by);
    void askForPrinter();
    void printNow(bool printers);
    void showPrinters(bool printers);

    PrintDocument m_document;
    QPrinter m_printer{QPrinter::HighResolution};
    QPrintPreviewWidget* m_view;
    QLabel* m_pages = nullptr;
    QLabel* m_remark = nullptr;
    QAction* m_back = nullptr;
    QAction* m_forth = nullptr;
    bool m_printed = true; // the last time
};

// Shows a preview over the window `owner`, as soon as it is known whether the print server answers; closing
// it deletes it. One that shows the same comes to the front instead.
void showPreview(const PrintDocument& document, QWidget* owner);

} // namespace tessel
