#include "controls/print/PrintDocument.h"

#include "controls/list/ReportText.h"

#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace tessel {

namespace {

// The paper's, whatever the letters of the screen.
constexpr int kPoints = 11;
constexpr int kHeadingPoints = 14;
constexpr double kCellPadding = 3;
constexpr double kGap = 8; // around a heading, below a text

// A flood that filled a list must not stop the window for the time that laying it out takes.
constexpr int kMostChars = 200000;
constexpr int kMostRows = 5000;

QTextCharFormat letters(int points, bool bold) {
    QTextCharFormat format;
    format.setFontPointSize(points);
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    return format;
}

void addText(QTextCursor& at, const QString& text, const QTextCharFormat& format, double above = 0) {
    QTextBlockFormat block;
    block.setTopMargin(above);
    block.setBottomMargin(kGap);
    // One block with line breaks in it, so that lines of one text stand close.
    QString lines = plainLines(text, kMostChars);
    if (at.atStart()) {
        at.setBlockFormat(block); // a document begins with an empty block
    } else {
        at.insertBlock(block, format);
    }
    at.insertText(lines.replace(u'\n', QChar::LineSeparator), format);
}

void addTable(QTextCursor& at, const QList<QStringList>& rows) {
    const auto count = static_cast<int>(std::min<qsizetype>(rows.size(), kMostRows));
    const auto columns = static_cast<int>(rows.first().size());
    if (columns == 0) {
        return;
    }
    QTextTableFormat format;
    format.setHeaderRowCount(1);
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderBrush(Qt::lightGray);
    format.setCellPadding(kCellPadding);
    format.setCellSpacing(0);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    QTextTable& table = *at.insertTable(count, columns, format);
    for (int row = 0; row < count; ++row) {
        const QTextCharFormat face = letters(kPoints, row == 0);
        for (int column = 0; column < columns; ++column) {
            table.cellAt(row, column)
                .firstCursorPosition()
                .insertText(singleLine(rows[row].value(column)), face);
        }
    }
    at.movePosition(QTextCursor::End);
    if (count < rows.size()) {
        addText(at, QStringLiteral("…"), letters(kPoints, false));
    }
}

} // namespace

void layOut(QTextDocument& pages, const PrintDocument& document) {
    QFont font(QStringLiteral("Sans Serif"), kPoints);
    font.setStyleHint(QFont::SansSerif);
    pages.setDefaultFont(font);
    pages.setUndoRedoEnabled(false);
    pages.setMetaInformation(QTextDocument::DocumentTitle, document.title);
    QTextCursor at(&pages);
    at.beginEditBlock();
    for (const PrintPart& part : document.parts) {
        if (!part.heading.isEmpty()) {
            addText(at, part.heading, letters(kHeadingPoints, true), at.atStart() ? 0 : kGap);
        }
        if (!part.text.isEmpty()) {
            addText(at, part.text, letters(kPoints, false));
        }
        if (!part.rows.isEmpty()) {
            addTable(at, part.rows);
        }
    }
    at.endEditBlock();
}

bool print(QPrinter& printer, const PrintDocument& document) {
    QTextDocument pages;
    layOut(pages, document);
    printer.setDocName(document.title);
    pages.print(&printer);
    return printer.isValid() && printer.printerState() != QPrinter::Error &&
           printer.printerState() != QPrinter::Aborted;
}

} // namespace tessel
