// What reaches the paper is what was given, however hostile or long.
#include "controls/print/PrintDocument.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextTable>

#include <gtest/gtest.h>

using namespace tessel;

namespace {
QString paper(const PrintDocument& document) {
    QTextDocument pages;
    layOut(pages, document);
    return pages.toPlainText().trimmed();
}
} // namespace

TEST(PrintDocument, PrintsMarkupAsText) {
    const QString hostile = "<b>Ann</b> &amp; <img src='http://x/y'>";
    EXPECT_EQ(paper({"", {{.heading = hostile, .text = "one\r\n" + hostile + "\x01\x1b"}}}),
              hostile + "\none\n" + hostile);
    QTextDocument pages;
    layOut(pages, {"", {{.rows = {{"Room", "Patient"}, {"1", hostile + "\nB"}, {"2"}}}}});
    const auto* const table = qobject_cast<QTextTable*>(pages.rootFrame()->childFrames().value(0));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->format().headerRowCount(), 1);
    EXPECT_EQ(table->cellAt(1, 1).firstCursorPosition().block().text(), hostile + " B");
    EXPECT_EQ(paper({"", {{.rows = {{}, {"x"}}}, {}}}), "");
}

TEST(PrintDocument, FillsPagesAndTellsOfAPrinterThatFails) {
    const QTemporaryDir folder;
    const auto file = [&folder](const QString& name, const PrintDocument& document, bool& printed) {
        QPrinter printer;
        printer.setOutputFileName(folder.filePath(name));
        printed = print(printer, document);
        QFile made(folder.filePath(name));
        return made.open(QIODevice::ReadOnly) ? made.readAll() : QByteArray();
    };
    bool printed = false;
    EXPECT_EQ(file("one.pdf", {"Rooms", {{.text = "short"}}}, printed).count("/Type /Page\n"), 1);
    EXPECT_TRUE(printed);
    QList<QStringList> rows{{"Room"}};
    for (int i = 0; i < 200; ++i) {
        rows += QStringList{QString::number(i)};
    }
    EXPECT_GT(file("many.pdf", {"Rooms", {{.rows = rows}}}, printed).count("/Type /Page\n"), 2);
    file("no/such/folder.pdf", {"Rooms", {{.text = "short"}}}, printed);
    EXPECT_FALSE(printed);
}
