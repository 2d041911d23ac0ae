// brackwater-cli: the application's service operations without a window, for scripts.
#include "CliArguments.h"
#include "CliOutput.h"
#include "Command.h"
#include "CommandCatalogue.h"
#include "InterruptWatcher.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"
#include "QtApps/Common/Logger/LogSetup.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <cstdio>

namespace {

// The application's name and organisation: the log file, the settings backups and any other
// data of the program go to the application's data folder.
constexpr const char* kApplicationName = "Brackwater Link";
constexpr const char* kOrganisationName = "Brackwater";
constexpr const char* kOrganisationDomain = "brackwater.example";

void SetIdentity() {
    QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
    QCoreApplication::setOrganizationName(QString::fromLatin1(kOrganisationName));
    QCoreApplication::setOrganizationDomain(QString::fromLatin1(kOrganisationDomain));
    QCoreApplication::setApplicationVersion(QStringLiteral(BWL_VERSION));
}

// Unbuffered, on the descriptors themselves: every line is out when it is written, also into
// a pipe, and nothing is left in a buffer at exit.
bool OpenStandardStream(QFile& file, FILE* stream) {
    return file.open(fileno(stream), QIODevice::WriteOnly | QIODevice::Unbuffered,
                     QFileDevice::DontCloseHandle);
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    QThread::currentThread()->setObjectName(QStringLiteral("MainThread"));
    SetIdentity();

    QFile standardOutput;
    QFile standardError;
    if (!OpenStandardStream(standardOutput, stdout) || !OpenStandardStream(standardError, stderr)) {
        return cli::code(cli::ExitStatus::Failed);
    }

    const cli::CliArguments arguments = cli::CliArguments::parse(QCoreApplication::arguments());
    const cli::CliInvocation& invocation = arguments.invocation();
    cli::CliOutput output(invocation.json, standardOutput, standardError,
                          cli::ProgressLine::StandardErrorIsTerminal());
    switch (arguments.action()) {
    case cli::CliArguments::Action::Help:
        standardOutput.write(cli::CliArguments::helpText().toUtf8());
        return cli::code(cli::ExitStatus::Success);
    case cli::CliArguments::Action::Version:
        standardOutput.write(QStringLiteral("brackwater-cli %1\n")
                                 .arg(QCoreApplication::applicationVersion())
                                 .toUtf8());
        return cli::code(cli::ExitStatus::Success);
    case cli::CliArguments::Action::UsageError:
        output.notice(QStringLiteral("brackwater-cli: %1\nTry \"brackwater-cli --help\".")
                          .arg(arguments.error()));
        output.field(QStringLiteral("error"), arguments.error());
        output.finish(invocation.command, cli::code(cli::ExitStatus::UsageError));
        return cli::code(cli::ExitStatus::UsageError);
    case cli::CliArguments::Action::Run:
        break;
    }

    // Standard output is the result: log lines never go there, and reach standard error only
    // when asked for.
    const logger::ConsoleEcho echo =
        invocation.verbose ? logger::ConsoleEcho::StandardError : logger::ConsoleEcho::Off;
    logger::ConfigureDefaults(echo);
    logger::InstallQtMessageHandler();
    communication::objects::registerProtocolObjectMetaTypes();
    common::ApplicationCore core(application, invocation.ports, echo, invocation.recordPath);

    cli::CommandContext context{invocation, core, output};
    const std::unique_ptr<cli::Command> command = cli::CreateCommand(context);
    QObject::connect(command.get(), &cli::Command::finished, &application,
                     [](int exitStatus) { QCoreApplication::exit(exitStatus); });
    cli::InterruptWatcher interrupts;
    QObject::connect(&interrupts, &cli::InterruptWatcher::interrupted, command.get(),
                     &cli::Command::interrupt);
    QTimer::singleShot(0, command.get(), &cli::Command::start);
    return QCoreApplication::exec();
}
