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
    explicit frmPreview(PrintDocument document, QWidget* parent = nullptr);

private:
    void createBar();
    void showPages();
    void turn(int by);
    void askForPrinter();
    void printNow();

    PrintDocument m_document;
    QPrinter m_printer{QPrinter::HighResolution};
    QPrintPreviewWidget* m_view;
    QLabel* m_pages = nullptr;
    QAction* m_back = nullptr;
    QAction* m_forth = nullptr;
    bool m_printed = true; // the last time
};

// Shows a preview over the window `owner`; closing it deletes it.
void showPreview(const PrintDocument& document, QWidget* owner);

} // namespace tessel
