// How long the usage window takes to open over a history of five years, 100,000 records, and what it costs
// to start with one. Goal: 300 ms from the command to the painted window.
#include "gui_office.h"

#include "controls/look/OfficeLook.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_QuotedRecords.h"
#include "engine/core/mod_TimeText.h"

using namespace tessel;

namespace {

constexpr int kRecords = 100000;
constexpr int kDays = 5 * 365;
constexpr int kRounds = 7;

void print(const char* what, const std::vector<double>& values) {
    std::printf("    %-52s median %.1f ms, worst %.1f ms\n", what, median(values), worst(values));
}

// From the command to the painted window.
double open(Office& office) {
    const Stopwatch watch;
    office.desktop.windows.show({WindowId::MicroMetrics});
    QApplication::processEvents();
    QWidget* const window = office.desktop.windows.window(WindowId::MicroMetrics);
    window->grab();
    const double ms = watch.ms();
    window->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ms;
}

// Newest first, as the program writes it: alerts of all kinds, and a message in four.
QByteArray history(QDate today) {
    QStringList records;
    records.reserve(kRecords);
    for (int i = 0; i < kRecords; ++i) {
        const QString date = dateText(today.addDays(-(static_cast<std::int64_t>(i) * kDays / kRecords)));
        const QString time = timeText(8 * 3600 + (kRecords - i) * 37 % (10 * 3600));
        const QString SID = QStringLiteral("%1XX000XXX0").arg(i % 40, 3, 10, QChar(u'0'));
        records +=
            i % 4 == 0
                ? joinRecord({"1", "0", "0", "0", "1AA1AA111AA1", "Front Desk", SID,
                              "Please bring the \"papers\" of room 3, and then come back.", time, date})
                : joinRecord({"0", QString::number(i % 11), "Status Set", "Room " + QString::number(i % 40),
                              "With a patient", time, date, SID});
    }
    return writeQuotedRecords(records);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    SetStyle();
    Q_INIT_RESOURCE(tessel);
    Office office;
    Station& me = *office.station;
    me.settings.Recents_SAVE_CNT.set(kRecords);
    const QByteArray file = history(me.metrics.today());
    replaceFile(me.folders.dataFile(kRecentsFile), file);
    std::printf("usage of five years, %d records, %.1f MB\n", kRecords,
                static_cast<double>(file.size()) / 1e6);

    const Stopwatch loading;
    me.history.LoadRecents();
    print("loading the history at the start", {loading.ms()});
    std::vector<double> clean;
    std::vector<double> changed;
    std::vector<double> counted;
    for (int round = 0; round < kRounds; ++round) {
        clean.push_back(open(office));
        me.history.AddItem({HistoryCode::DoorBell, "DoorBell", "Room 1", "Come", "9:00:00 AM",
                            dateText(me.metrics.today()), "x"});
        changed.push_back(open(office));
        const Stopwatch counting;
        me.metrics.LoadMetrics(me.own.SID, me.metrics.today().addDays(-round));
        counted.push_back(counting.ms());
    }
    print("opening the window", clean);
    print("opening it right after an event, which saves the file", changed);
    print("choosing a day", counted);
    std::printf("    %zu days, the oldest %s\n", me.metrics.lstDates().size(),
                qPrintable(me.metrics.lstDates().back().text));
    return 0;
}
