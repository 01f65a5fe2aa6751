// The small client of a running station: hands it one command.
#include "engine/core/mod_FileTools.h"
#include "engine/operations/mod_RemoteCommands.h"
#include "platform/Facts.h"
#include "platform/LocalChannel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

using namespace tessel;

constexpr int kHandedOver = 0;
constexpr int kNoStation = 1;
constexpr int kWrongUse = 2;
constexpr int kNotWritten = 3;

void printHelp(FILE* out) {
    std::fputs("Usage: tslapp COMMAND\n"
               "Hands a command to the station that runs for this user.\n\n"
               "Commands:\n",
               out);
    for (const QString& line : RemoteCommands::help()) {
        std::fprintf(out, "  %s\n", line.toLocal8Bit().constData());
    }
    std::fputs("  --locations     print what the running station sees\n"
               "  --report FILE   write what somebody who helps you needs to know, without any names of\n"
               "                  patients, statuses, notes or messages\n"
               "  --help          this text\n\n"
               "An argument cannot hold a colon. Returns 0 when the command was handed over, 1 when no\n"
               "station runs, 3 when the file could not be written.\n",
               out);
}

int tellNoStation() {
    std::fputs("tslapp: no station is running for this user\n", stderr);
    return kNoStation;
}

int writeReport(const QString& path) {
    const auto report = LocalChannel(systemFacts()).ask(LocalChannel::kReport);
    if (!report.has_value() || report->isEmpty()) {
        return tellNoStation();
    }
    // A folder is not made here: its name may be mistyped.
    if (!QFileInfo(path).absoluteDir().exists() || !replaceFile(path, report->toUtf8())) {
        std::fprintf(stderr, "tslapp: %s could not be written\n", path.toLocal8Bit().constData());
        return kNotWritten;
    }
    std::printf("%s\n", path.toLocal8Bit().constData());
    return kHandedOver;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() == 2 && arguments[0] == QLatin1String("--report") && !arguments[1].isEmpty()) {
        return writeReport(arguments[1]);
    }
    const QString command = arguments.join(u' ');
    if (command == QLatin1String("--help")) {
        printHelp(stdout);
        return kHandedOver;
    }
    const bool locations = command == QLatin1String("--locations");
    if (!locations && !command.startsWith(u'/')) {
        printHelp(stderr);
        return kWrongUse;
    }
    const LocalChannel channel(systemFacts());
    const auto answer = channel.ask(locations ? LocalChannel::kLocations : LocalChannel::kCommand + command);
    if (!answer.has_value()) {
        return tellNoStation();
    }
    std::fputs(answer->toLocal8Bit().constData(), stdout);
    return kHandedOver;
}
