#include "windows/dialogs/frmPreview.h"

#include "controls/look/ScreenPlacement.h"
#include "controls/print/PrintServer.h"
#include "windows/dialogs/boxes.h"

#include <QAction>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

namespace tessel {

namespace {
constexpr QSize kFirstSize(640, 720);
} // namespace

frmPreview::frmPreview(PrintDocument document, bool printers, QWidget* parent)
    : QDialog(parent), m_document(std::move(document)), m_view(new QPrintPreviewWidget(&m_printer, this)) {
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(m_document.title.isEmpty()
                       ? tr("Print Preview")
                       : tr("Print Preview") + QLatin1String(" - ") + m_document.title);
    resize(sizeForLetters(*this, kFirstSize));
    m_printer.setDocName(m_document.title); // what a file to print to is called at first
    m_view->setObjectName(QStringLiteral("PrintPreview"));
    m_view->setAccessibleName(tr("Pages"));
    m_view->fitToWidth();
    createBar();
    showPrinters(printers);
    connect(m_view, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { m_printed = print(*printer, m_document); });
    connect(m_view, &QPrintPreviewWidget::previewChanged, this, &frmPreview::showPages);
    showPages();
    m_view->setFocus();
}

void frmPreview::createBar() {
    auto* const bar = new QToolBar(tr("Print preview"), this);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [this, bar](const char* name, const QString& caption, const QString& tip,
                                 const QList<QKeySequence>& keys, auto act) {
        QAction* const action = bar->addAction(caption);
        action->setObjectName(QLatin1String(name));
        action->setShortcuts(keys);
        action->setToolTip(keys.isEmpty() ? tip
                                          : tip + QLatin1String(" (") +
                                                keys.first().toString(QKeySequence::NativeText) + u')');
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    add("cmdPrint", tr("&Print…"), tr("Choose a printer and print"), {QKeySequence::Print}, [this] {
        askForPrinter();
    })->setAutoRepeat(false); // the key that opened this window may be held
    bar->addSeparator();
    add("cmdFitWidth", tr("Fit &Width"), tr("The page as wide as the window"), {Qt::CTRL | Qt::Key_1},
        [this] { m_view->fitToWidth(); });
    add("cmdFitPage", tr("Whole P&age"), tr("All of the page"), {Qt::CTRL | Qt::Key_0},
        [this] { m_view->fitInView(); });
    add("cmdLarger", tr("&Larger"), tr("Look closer"), {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal},
        [this] { m_view->zoomIn(); });
    add("cmdSmaller", tr("&Smaller"), tr("Step back"), {QKeySequence::ZoomOut},
        [this] { m_view->zoomOut(); });
    bar->addSeparator();
    m_back = add("cmdPrevious", tr("P&revious"), tr("Previous page"), {Qt::Key_PageUp}, [this] { turn(-1); });
    m_pages = new QLabel(bar);
    m_pages->setObjectName(QStringLiteral("lblPages"));
    m_pages->setTextFormat(Qt::PlainText);
    m_pages->setMargin(4);
    bar->addWidget(m_pages);
    m_forth = add("cmdNext", tr("&Next"), tr("Next page"), {Qt::Key_PageDown}, [this] { turn(1); });
    bar->addSeparator();
    add("cmdClose", QStringLiteral(" Close "), tr("Close the preview"), {}, [this] { reject(); });

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_remark = new QLabel(tr("The print server does not answer: print to a file, or try again later"), this);
    m_remark->setObjectName(QStringLiteral("lblRemark"));
    m_remark->setWordWrap(true);
    m_remark->setMargin(4);
    layout->addWidget(bar);
    layout->addWidget(m_remark);
    layout->addWidget(m_view, 1);
}

void frmPreview::showPrinters(bool printers) {
    m_remark->setVisible(!printers);
}

void frmPreview::showPages() {
    const int page = m_view->currentPage();
    const int count = m_view->pageCount();
    m_pages->setText(tr("Page %1 of %2").arg(count == 0 ? 0 : page).arg(count));
    m_back->setEnabled(page > 1);
    m_forth->setEnabled(page < count);
}

void frmPreview::turn(int by) {
    m_view->setCurrentPage(m_view->currentPage() + by);
    showPages();
}

// The server is asked anew each time: it may have stopped to answer since, or begun.
void frmPreview::askForPrinter() {
    askPrintServer(this, [this](bool printers) {
        showPrinters(printers);
        auto* const dialog = new QPrintDialog(&m_printer, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this,
                [this] { askPrintServer(this, [this](bool stillPrinters) { printNow(stillPrinters); }); });
        dialog->open(); // an alert's popup must not wait for it
    });
}

void frmPreview::printNow(bool printers) {
    showPrinters(printers);
    m_printed = printers || m_printer.outputFormat() == QPrinter::PdfFormat;
    if (m_printed) {
        m_view->print();
    }
    if (m_printed) {
        accept();
        return;
    }
    openBox(this, QMessageBox::Warning, QStringLiteral("QuillIM Print Error"),
            tr("It could not be printed. Choose another printer, or another file."));
}

void showPreview(const PrintDocument& document, QWidget* owner) {
    askPrintServer(owner, [document, owner](bool printers) {
        for (frmPreview* const open : owner->findChildren<frmPreview*>()) {
            if (open->isVisible() && open->document() == document) {
                open->raise();
                open->activateWindow();
                return;
            }
        }
        auto* const preview = new frmPreview(document, printers, owner);
        preview->setAttribute(Qt::WA_DeleteOnClose);
        preview->show();
    });
}

} // namespace tessel
