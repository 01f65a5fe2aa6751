// The small client of a running station.
#include "platform/Facts.h"
#include "platform/LocalChannel.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr char kHelp[] = "Usage: tslapp --locations   print what the running station of this user sees\n"
                         "       tslapp --help\n";

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2 || arguments.at(1) == QLatin1String("--help")) {
        std::fputs(kHelp, arguments.size() == 2 ? stdout : stderr);
        return arguments.size() == 2 ? 0 : 2;
    }
    if (arguments.at(1) != QLatin1String("--locations")) {
        std::fputs(kHelp, stderr);
        return 2;
    }
    const auto answer =
        tessel::LocalChannel(tessel::systemFacts()).ask(tessel::LocalChannel::kLocations);
    if (!answer.has_value()) {
        std::fputs("tslapp: no station is running\n", stderr);
        return 1;
    }
    std::fputs(answer->toUtf8().constData(), stdout);
    return 0;
}
