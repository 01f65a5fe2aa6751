#include "windows/operations/frmMessageTest.h"

#include "engine/operations/mod_MessageTest.h"
#include "engine/ports/cSession.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>

namespace tessel {

namespace {
constexpr int kGrid = 8;
constexpr int kMessageMs = 5000;
constexpr int kUsualCount = 10;
constexpr int kStateLetters = 48;
constexpr int kPauses[] = {1, 2, 5, 10, 30, 60};
} // namespace

frmMessageTest::frmMessageTest(MessageTest& test, Session& session, QWidget* parent)
    : QMainWindow(parent), m_test(test), m_session(session), m_pause(new QComboBox(this)),
      m_count(new QSpinBox(this)), m_start(new QPushButton(tr("&Start"), this)),
      m_stop(new QPushButton(tr("S&top"), this)), m_state(new QLabel(this)) {
    setWindowTitle(tr("Message Test"));
    createFields();
    createMenus();
    connect(&m_test, &MessageTest::changed, this, &frmMessageTest::showState);
    showState();
    m_start->setFocus();
}

frmMessageTest::~frmMessageTest() {
    m_test.disconnect(this);
    m_test.stop();
}

void frmMessageTest::createFields() {
    m_pause->setObjectName(QStringLiteral("cmbTimer"));
    for (const int seconds : kPauses) {
        m_pause->addItem(seconds == 1 ? tr("every second") : tr("every %1 seconds").arg(seconds), seconds);
    }
    m_count->setObjectName(QStringLiteral("txtmCNT"));
    m_count->setRange(1, MessageTest::kMostMessages);
    m_count->setValue(kUsualCount);
    m_start->setObjectName(QStringLiteral("cmdStart"));
    m_start->setToolTip(tr("Everyone gets these messages"));
    m_stop->setObjectName(QStringLiteral("cmdStop"));
    m_state->setObjectName(QStringLiteral("lblState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_state->setMinimumWidth(kStateLetters * fontMetrics().averageCharWidth());
    connect(m_start, &QPushButton::clicked, this,
            [this] { m_test.start(m_pause->currentData().toInt(), m_count->value()); });
    connect(m_stop, &QPushButton::clicked, &m_test, &MessageTest::stop);

    auto* const centre = new QWidget(this);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_start);
    buttons->addWidget(m_stop);
    auto* const layout = new QFormLayout(centre);
    layout->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, kGrid);
    layout->setSpacing(kGrid);
    layout->addRow(tr("S&end a message"), m_pause);
    layout->addRow(tr("&Messages"), m_count);
    layout->addRow(m_state);
    layout->addRow(buttons);
    setCentralWidget(centre);
    statusBar();
}

void frmMessageTest::createMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    const auto add = [&](const char* name, const QString& text, const QKeySequence& keys, auto act) {
        file->addAction(text, keys, this, act)->setObjectName(QLatin1String(name));
    };
    add("mnuView", tr("&View Log"), {}, &frmMessageTest::ViewmLog);
    add("mnuDelete", tr("&Delete Log"), {}, &frmMessageTest::KillmLog);
    file->addSeparator();
    QAction* const exit = file->addAction(tr("C&lose"), this, &QWidget::close);
    exit->setObjectName(QStringLiteral("mnuExit"));
    exit->setShortcuts({QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)});
}

void frmMessageTest::showState() {
    const bool running = m_test.running();
    for (QWidget* const field :
         {static_cast<QWidget*>(m_pause), static_cast<QWidget*>(m_count), static_cast<QWidget*>(m_start)}) {
        field->setEnabled(!running);
    }
    m_stop->setEnabled(running);
    QString text = m_test.count() == 0 ? tr("Everyone on the network gets the messages of a test.")
                                       : tr("%1 of %2 messages").arg(m_test.done()).arg(m_test.count());
    if (m_test.failed() > 0) {
        text += tr(", %1 of them could not be sent").arg(m_test.failed());
    }
    m_state->setText(text);
}

void frmMessageTest::ViewmLog() {
    if (!m_session.openPath(m_test.logPath())) {
        statusBar()->showMessage(tr("There is no log, or no program to show it"), kMessageMs);
    }
}

void frmMessageTest::KillmLog() {
    statusBar()->showMessage(m_test.KillmLog() ? tr("The log was deleted") : tr("There is no log"),
                             kMessageMs);
}

} // namespace tessel
