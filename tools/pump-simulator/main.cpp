// pump-simulator: a virtual pump drive on a serial line. With --pty (the default) the first line
// on standard output is the path of the port the application should open.

#include "Console.h"
#include "PumpSimulator.h"
#include "SimulatorOptions.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int gSignalPipe[2] = {-1, -1};

// Only async-signal-safe work here: the event loop picks the byte up.
void onSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(gSignalPipe[1], &byte, 1);
}

bool installSignalHandlers() {
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, gSignalPipe) != 0) {
        return false;
    }
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    // A script may close our output pipes once it has the port, and a job started in the
    // background of a shell must not be stopped for reading the terminal: ignore both signals,
    // the calls then fail harmlessly instead.
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGTTIN, SIG_IGN);
    return ::sigaction(SIGINT, &action, nullptr) == 0 &&
           ::sigaction(SIGTERM, &action, nullptr) == 0;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pump-simulator"));
    qSetMessagePattern(QStringLiteral("pump-simulator %{time hh:mm:ss.zzz} %{message}"));

    QString error;
    bool helpRequested = false;
    auto parsed =
        simulator::SimulatorOptions::parse(QCoreApplication::arguments(), error, helpRequested);
    if (helpRequested) {
        std::fprintf(stdout, "%s\n%s\n", qPrintable(simulator::SimulatorOptions::helpText()),
                     qPrintable(simulator::Console::helpText()));
        return 0;
    }
    if (!parsed) {
        std::fprintf(stderr, "pump-simulator: %s\n", qPrintable(error));
        return 2;
    }
    simulator::SimulatorOptions options = *parsed;
    if (!options.seedGiven) {
        options.seed = static_cast<std::uint64_t>(QDateTime::currentMSecsSinceEpoch());
    }
    if (!installSignalHandlers()) {
        std::fprintf(stderr, "pump-simulator: cannot install signal handlers\n");
        return 1;
    }

    simulator::PumpSimulator pump(options);
    QString portName;
    if (!pump.start(portName, error)) {
        std::fprintf(stderr, "pump-simulator: %s\n", qPrintable(error));
        return 1;
    }
    // Scripts read this line to find the port: it comes first and alone, and at once.
    std::fprintf(stdout, "%s\n", qPrintable(portName));
    std::fflush(stdout);
    qInfo("Serving a simulated pump on %s (seed %llu)", qPrintable(portName),
          static_cast<unsigned long long>(options.seed));

    QSocketNotifier signalNotifier(gSignalPipe[0], QSocketNotifier::Read);
    QObject::connect(&signalNotifier, &QSocketNotifier::activated, &app, [&app]() {
        char byte = 0;
        [[maybe_unused]] const ssize_t count = ::read(gSignalPipe[0], &byte, 1);
        qInfo("Interrupted, closing");
        app.quit();
    });
    QObject::connect(&pump, &simulator::PumpSimulator::unplugged, &app, &QCoreApplication::quit);

    simulator::Console console(pump);
    QObject::connect(&console, &simulator::Console::quitRequested, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    if (options.console) {
        console.start();
    }

    const int result = QCoreApplication::exec();
    pump.unplug();
    qInfo("Closed");
    return result;
}
