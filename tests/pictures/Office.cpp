#include "Office.h"

#include "controls/look/OfficeLook.h"
#include "engine/core/mod_Definitions.h"
#include "engine/station.h"

#include <QApplication>

// Resources of a static library are not there until they are asked for.
static void loadPictures() {
    Q_INIT_RESOURCE(tessel);
}

namespace tessel {

namespace {

constexpr int kSettledMs = 350;

struct Neighbour {
    const char* name;
    int tag;
    const char* status;
    int age; // minutes
    const char* patient;
    int staff;
    bool doNotDisturb;
    const char* note;
};

constexpr Neighbour kNeighbours[] = {
    {"Ultrasound", 1, "", 0, "", 0, false, "Gel out of stock & reorder <b>now</b>"},
    {"Front Desk 2", 2, "Checking in", 3, "", 0, false, ""},
    {"Manager", 3, "In a meeting", 55, "", 0, true, ""},
    {"X-Ray", 4, "Ready", 0, "", 0, false, "Warming up"},
    {"Exam Room 1", 5, "With patient", 12, "Miller", 32, false, "Interpreter needed, Spanish"},
    {"Exam Room 2", 5, "Ready for doctor", 27, "Shaw", 30, false, ""},
    {"Exam Room 3", 5, "", 0, "", 0, false, "Being cleaned until 10:30"},
    {"Exam Room 4", 5, "Waiting for results", 95, "Okoro", 34, false, ""},
    {"Exam Room 5", 5, "", 0, "", 0, true, "Lamp broken"},
    {"Triage", 8, "Need help lifting", 9, "Baker", 37, false, ""},
    {"Phlebotomy", 9, "Queue of 5", 17, "", 35, false, ""},
    {"Nurses' Station", 11, "", 0, "", 33, false, "Shift ends at 6"},
    {"Dr. Lindqvist", 12, "", 0, "", 0, false, "Back on Thursday"},
    {"Dr. Hale", 13, "In surgery", 140, "", 31, true, "Please only urgent"},
    {"Lab", 14, "Analyser down", 30, "", 36, false, "Results by noon"},
    {"Records", 15, "", 0, "", 0, false, ""},
    {"\xc3\x89tage \xc2\xab"
     "2\xc2\xbb caf\xc3\xa9 Wwwwwwwwwwwwwwwwwww",
     16, "St 66666666666666666666666", 61, "Lind", 0, true,
     "A long note of a room that has much to tell about itself today"},
    {"Billing", 17, "At lunch", 45, "", 0, false, "Closed for lunch, back 1:15"},
    {"Check-out", 20, "", 0, "", 39, false, ""},
};

} // namespace

Office::Office(bool dark, int points, bool crowded) {
    qputenv("TESSEL_THEME", dark ? "dark" : "light");
    SetStyle();
    loadPictures();
    QApplication::setCursorFlashTime(0);
    // A font that every machine has which runs the tests.
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), points));
    me().set(kUserFile, QStringLiteral("Fonts"), QStringLiteral("EVFS"), QString::number(points));
    me().set(kUserFile, QStringLiteral("Advanced"), QStringLiteral("ENCODE"), QStringLiteral("0"));
    me().set(kUserFile, QStringLiteral("User"), QStringLiteral("LOCATION"), QStringLiteral("Front Desk"));
    me().set(kUserFile, QStringLiteral("User"), QStringLiteral("TAG"), QStringLiteral("2"));
    me().set(kUserFile, QStringLiteral("Settings"), QStringLiteral("PV"), QStringLiteral("1"));
    m_world.startAll();
    m_world.run(10);
    if (crowded) {
        meet();
    }
    m_popups.setEngine(me()->popups);
}

Office::~Office() = default;

void Office::settle() {
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
}

void Office::meet() {
    int number = 0;
    for (const Neighbour& other : kNeighbours) {
        RawPacket packet;
        packet.SID = QStringLiteral("2%1AB2%1CDE0").arg(number++, 2, 10, QChar(u'0'));
        packet.location = QString::fromUtf8(other.name);
        packet.code = QStringLiteral("XAN");
        packet.tagWord = QStringLiteral("%1:0").arg(other.tag);
        packet.note = QString::fromUtf8(other.note);
        const bool occupied = *other.patient != '\0';
        const int since = m_world.clock.secondOfDay() - other.age * 60;
        const QString time =
            QStringLiteral("%1:%2:00").arg(since / 3600).arg(since / 60 % 60, 2, 10, QChar(u'0'));
        packet.presence = QStringList{
            QLatin1String(other.status),
            time,
            occupied ? QStringLiteral("-1") : QStringLiteral("0"),
            QLatin1String(other.patient),
            QString::number(other.staff),
            {},
            {},
            other.doNotDisturb ? QStringLiteral("-1") : QStringLiteral("0"),
            {}}.join(ValueMark);
        me()->protocol.receive(packet.bytes());
    }
}

frmMain& Office::window(QSize size) {
    if (!m_form) {
        m_form = std::make_unique<frmMain>(*me().station, m_registry);
    }
    m_form->resize(size);
    m_form->show();
    m_form->activateWindow();
    settle();
    // The counts in the captions of the tabs, and the look whether it is on the screen, which the invisible
    // one is too small for.
    QTest::qWait(kSettledMs);
    m_form->resize(size);
    settle();
    return *m_form;
}

QImage Office::picture() {
    settle();
    return m_form->grab().toImage();
}

void Office::hear(const QString& code, const QString& body, const QString& from) {
    RawPacket packet;
    packet.code = code;
    packet.body = body;
    if (!from.isEmpty()) {
        packet.location = from;
    }
    me()->protocol.receive(packet.bytes());
}

QImage Office::popup(PopupId popup) {
    const auto& content = me().desktop.popups[static_cast<std::size_t>(popup)];
    if (!content) {
        return {};
    }
    m_popups.show(popup, *content);
    settle();
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const shown = qobject_cast<PopupControl*>(window); shown != nullptr && shown->isVisible()) {
            const QImage picture = shown->grab().toImage();
            m_popups.closeAll();
            return picture;
        }
    }
    return {};
}

} // namespace tessel
