// What is printed: plain texts and tables, from top to bottom.
//
//     PrintDocument document{tr("Rooms"), {{.heading = tr("Rooms"), .rows = {{"Room", "Patient"}, ...}}}};
//     showPreview(document, this); // windows/dialogs/frmPreview.h
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QPrinter;
class QTextDocument;

namespace tessel {

// Each of the three may be missing; they stand in this order.
struct PrintPart {
    QString heading{};
    QString text{};            // with line breaks as they are
    QList<QStringList> rows{}; // of a table; the first is its head, and stands on each page again

    bool operator==(const PrintPart&) const = default;
};

// Texts of any origin: they are printed as they stand, and never read as markup.
struct PrintDocument {
    QString title; // of the preview and of the print job
    QList<PrintPart> parts;

    bool operator==(const PrintDocument&) const = default;
};

// Fills an empty document, as it is laid out on pages.
void layOut(QTextDocument& pages, const PrintDocument& document);

// Prints in black on white, with page numbers. False when the printer, or the file that stands for it,
// did not take it.
bool print(QPrinter& printer, const PrintDocument& document);

} // namespace tessel
