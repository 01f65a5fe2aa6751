#include "windows/operations/frmNetworkInfo.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QUrl>

namespace tessel {

namespace {
const QString kTitle = QStringLiteral("Tessel Status Information");
constexpr int kMessageMs = 5000;
constexpr int kLineCharacters = 60;
constexpr int kLines = 22;
} // namespace

frmNetworkInfo::frmNetworkInfo(const QString& text, QWidget* parent)
    : QMainWindow(parent), m_text(new QPlainTextEdit(this)) {
    setWindowTitle(kTitle);
    resize(kLineCharacters * fontMetrics().averageCharWidth(), kLines * fontMetrics().lineSpacing());
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(kTitle);
    m_text->setPlainText(text);
    m_text->setFocus();
    setCentralWidget(m_text);
    statusBar();

    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Copy"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), this,
                    &frmNetworkInfo::CreateCopy)
        ->setObjectName(QStringLiteral("mnuCopy"));
    file->addAction(tr("Send by &Mail"), this, &frmNetworkInfo::CreateEmail)
        ->setObjectName(QStringLiteral("mnuMail"));
    file->addSeparator();
    QAction* const exit = file->addAction(tr("C&lose"), this, &QWidget::close);
    exit->setObjectName(QStringLiteral("mnuExit"));
    exit->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
}

void frmNetworkInfo::CreateCopy() {
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
    statusBar()->showMessage(tr("Copied to the clipboard"), kMessageMs);
}

void frmNetworkInfo::CreateEmail() {
    // No address: whom to ask is the office's own affair, and the user fills it in.
    const QByteArray link = "mailto:?subject=" + QUrl::toPercentEncoding(kTitle) +
                            "&body=" + QUrl::toPercentEncoding(m_text->toPlainText());
    if (!QDesktopServices::openUrl(QUrl::fromEncoded(link))) {
        statusBar()->showMessage(tr("No mail program was found"), kMessageMs);
    }
}

} // namespace tessel
