#include "windows/operations/frmNetworkInfo.h"

#include "controls/look/TabOrder.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/operations/mod_Diagnostics.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QUrl>

namespace tessel {

namespace {
const QString kTitle = QStringLiteral("Tessel Status Information");
constexpr int kMessageMs = 8000;
constexpr int kLineCharacters = 84;
constexpr int kLines = 38;
constexpr int kFactLines = 20; // of these, the share of the upper pane
constexpr int kGrid = 8;
constexpr double kMostOfScreen = 0.9;

QPlainTextEdit* readOnlyText(const QString& name, QWidget* parent) {
    auto* const text = new QPlainTextEdit(parent);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setAccessibleName(name);
    return text;
}
} // namespace

frmNetworkInfo::frmNetworkInfo(const Diagnostics& diagnostics, const Folders& folders, QWidget* parent)
    : QMainWindow(parent), m_diagnostics(diagnostics), m_folders(folders), m_text(readOnlyText(kTitle, this)),
      m_sound(new QLabel(this)), m_log(readOnlyText(tr("Log"), this)) {
    setWindowTitle(kTitle);
    const QSize wanted(kLineCharacters * fontMetrics().averageCharWidth(),
                       kLines * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * kMostOfScreen));
    createPanes();
    createMenus();
    DisplayInformation();
    m_text->setFocus();
}

void frmNetworkInfo::createPanes() {
    m_text->setObjectName(QStringLiteral("txtInformation"));
    m_log->setObjectName(QStringLiteral("txtLog"));
    m_log->setPlaceholderText(tr("Nothing has been logged"));
    m_log->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_sound->setObjectName(QStringLiteral("lblSound"));
    m_sound->setTextFormat(Qt::PlainText);
    m_sound->setWordWrap(true);
    auto* const help = new QPushButton(tr("&Help us help you…"), this);
    help->setObjectName(QStringLiteral("cmdReport"));
    help->setToolTip(tr("Writes all this to a file, without names of patients, statuses, notes or messages"));
    help->setAutoDefault(false);
    connect(help, &QPushButton::clicked, this, &frmNetworkInfo::askReport);

    auto* const lower = new QWidget(this);
    auto* const heading = new QHBoxLayout;
    heading->addWidget(m_sound, 1);
    heading->addWidget(help);
    auto* const layout = new QVBoxLayout(lower);
    layout->setContentsMargins(kGrid, kGrid, kGrid, 0);
    layout->setSpacing(kGrid);
    layout->addLayout(heading);
    layout->addWidget(m_log, 1);
    auto* const panes = new QSplitter(Qt::Vertical, this);
    panes->addWidget(m_text);
    panes->addWidget(lower);
    panes->setStretchFactor(0, kFactLines);
    panes->setStretchFactor(1, kLines - kFactLines);
    panes->setSizes({height() * kFactLines / kLines, height() * (kLines - kFactLines) / kLines});
    panes->setChildrenCollapsible(false);
    setCentralWidget(panes);
    tabAsLaidOut(*panes);
    statusBar();
}

void frmNetworkInfo::createMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    const auto add = [&](const char* name, const QString& text, const QKeySequence& keys, auto act) {
        file->addAction(text, keys, this, act)->setObjectName(QLatin1String(name));
    };
    add("mnuCopy", tr("&Copy"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), &frmNetworkInfo::CreateCopy);
    add("mnuMail", tr("Send by &Mail"), {}, &frmNetworkInfo::CreateEmail);
    add("mnuReport", tr("Save &Report…"), QKeySequence::Save, &frmNetworkInfo::askReport);
    add("mnuRefresh", tr("&Refresh"), QKeySequence::Refresh, &frmNetworkInfo::DisplayInformation);
    file->addSeparator();
    QAction* const exit = file->addAction(tr("C&lose"), this, &QWidget::close);
    exit->setObjectName(QStringLiteral("mnuExit"));
    exit->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
}

void frmNetworkInfo::DisplayInformation() {
    m_text->setPlainText(m_diagnostics.GetDiagInfo());
    m_sound->setText(m_diagnostics.SoundInfo());
    m_log->setPlainText(m_diagnostics.LogLines().join(u'\n'));
    m_log->verticalScrollBar()->setValue(m_log->verticalScrollBar()->maximum());
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

void frmNetworkInfo::askReport() {
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Report"), m_folders.documents() + tr("Tessel report.txt"), tr("Text files (*.txt)"));
    if (!path.isEmpty()) {
        saveReport(path);
    }
}

void frmNetworkInfo::saveReport(const QString& path) {
    const bool saved = replaceFile(path, m_diagnostics.HelpReport().toUtf8());
    statusBar()->showMessage(saved ? tr("Saved as %1").arg(path) : tr("%1 could not be written").arg(path),
                             kMessageMs);
}

} // namespace tessel
