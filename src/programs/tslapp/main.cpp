// The small client of a running station: hands it one command.
#include "engine/operations/mod_RemoteCommands.h"
#include "platform/Facts.h"
#include "platform/LocalChannel.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace tessel;

constexpr int kHandedOver = 0;
constexpr int kNoStation = 1;
constexpr int kWrongUse = 2;

void printHelp(FILE* out) {
    std::fputs("Usage: tslapp COMMAND\n"
               "Hands a command to the station that runs for this user.\n\n"
               "Commands:\n",
               out);
    for (const QString& line : RemoteCommands::help()) {
        std::fprintf(out, "  %s\n", line.toLocal8Bit().constData());
    }
    std::fputs("  --locations     print what the running station sees\n"
               "  --help          this text\n\n"
               "An argument cannot hold a colon. Returns 0 when the command was handed over, 1 when no\n"
               "station runs.\n",
               out);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QString command = QCoreApplication::arguments().mid(1).join(u' ');
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
        std::fputs("tslapp: no station is running for this user\n", stderr);
        return kNoStation;
    }
    std::fputs(answer->toLocal8Bit().constData(), stdout);
    return kHandedOver;
}
