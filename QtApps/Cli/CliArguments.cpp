#include "CliArguments.h"

#include "CommandCatalogue.h"

#include "QtApps/Common/Instantiation/CommandLine.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

#include <cmath>

namespace cli {

namespace {

// Far beyond any scan, short of an int's milliseconds.
constexpr double kMaxTimeoutSeconds = 86400.0;

struct Options {
    QCommandLineOption port{QStringLiteral("port"), QString(), QStringLiteral("PORT")};
    QCommandLineOption json{QStringLiteral("json")};
    QCommandLineOption timeout{QStringLiteral("timeout"), QString(), QStringLiteral("SECONDS")};
    QCommandLineOption verbose{QStringLiteral("verbose")};
    QCommandLineOption record{QStringLiteral("record"), QString(), QStringLiteral("FILE")};
    QCommandLineOption seconds{QStringLiteral("seconds"), QString(), QStringLiteral("N")};
    QCommandLineOption dryRun{QStringLiteral("dry-run")};
    QCommandLineOption restoreSettings{QStringLiteral("restore-settings")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}};
    QCommandLineOption version{QStringLiteral("version")};

    /// The options that belong to one command.
    QList<const QCommandLineOption*> commandOptions() const {
        return {&seconds, &dryRun, &restoreSettings};
    }
};

constexpr int kHelpWidth = 80;
constexpr int kDescriptionIndent = 6;

// `text` broken into lines of at most kHelpWidth columns at spaces, each indented by `indent`.
QString wrapped(const QString& text, int indent) {
    const QString margin(indent, QLatin1Char(' '));
    QString result;
    QString line;
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (!line.isEmpty() && indent + line.size() + 1 + word.size() > kHelpWidth) {
            result += margin + line + QLatin1Char('\n');
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    if (!line.isEmpty()) {
        result += margin + line + QLatin1Char('\n');
    }
    return result;
}

} // namespace

void CliArguments::failWith(const QString& error) {
    mAction = Action::UsageError;
    mError = error;
}

CliArguments CliArguments::parse(const QStringList& arguments) {
    CliArguments result;
    const Options options;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({options.port, options.json, options.timeout, options.verbose, options.record,
                       options.seconds, options.dryRun, options.restoreSettings, options.help,
                       options.version});
    // Known even when the rest is wrong, so that a usage error answers in JSON too.
    result.mInvocation.json = arguments.contains(QStringLiteral("--json"));
    if (!parser.parse(arguments)) {
        result.failWith(parser.errorText());
        return result;
    }
    if (parser.isSet(options.help)) {
        result.mAction = Action::Help;
        return result;
    }
    if (parser.isSet(options.version)) {
        result.mAction = Action::Version;
        return result;
    }

    CliInvocation& invocation = result.mInvocation;
    invocation.json = parser.isSet(options.json);
    invocation.verbose = parser.isSet(options.verbose);
    invocation.recordPath = parser.value(options.record);
    invocation.ports = common::ChosenPorts(parser.values(options.port));

    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty()) {
        result.failWith(QStringLiteral("No command given"));
        return result;
    }
    invocation.command = positional.takeFirst();
    invocation.arguments = positional;
    const CommandEntry* entry = FindCommand(invocation.command);
    if (entry == nullptr) {
        result.failWith(QStringLiteral("Unknown command \"%1\"").arg(invocation.command));
        return result;
    }
    const qsizetype expected = entry->argument.isEmpty() ? 0 : 1;
    if (positional.size() != expected) {
        result.failWith(expected == 0
                            ? QStringLiteral("%1 takes no arguments").arg(entry->name)
                            : QStringLiteral("%1 takes one %2").arg(entry->name, entry->argument));
        return result;
    }
    for (const QCommandLineOption* option : options.commandOptions()) {
        const QString& name = option->names().constFirst();
        if (parser.isSet(*option) && !entry->options.contains(name)) {
            result.failWith(QStringLiteral("--%1 is no option of %2").arg(name, entry->name));
            return result;
        }
    }

    if (parser.isSet(options.timeout)) {
        bool ok = false;
        const double seconds = parser.value(options.timeout).toDouble(&ok);
        if (!ok || !std::isfinite(seconds) || seconds <= 0.0 || seconds > kMaxTimeoutSeconds) {
            result.failWith(QStringLiteral("--timeout takes a number of seconds above 0, not "
                                           "\"%1\"")
                                .arg(parser.value(options.timeout)));
            return result;
        }
        invocation.timeoutMs = static_cast<int>(std::lround(seconds * 1000.0));
    }
    if (parser.isSet(options.seconds)) {
        bool ok = false;
        const int seconds = parser.value(options.seconds).toInt(&ok);
        if (!ok || seconds < 0 || seconds > static_cast<int>(kMaxTimeoutSeconds)) {
            result.failWith(QStringLiteral("--seconds takes a whole number of seconds, not "
                                           "\"%1\"")
                                .arg(parser.value(options.seconds)));
            return result;
        }
        invocation.seconds = seconds;
    }
    invocation.dryRun = parser.isSet(options.dryRun);
    invocation.restoreSettings = parser.isSet(options.restoreSettings);
    return result;
}

QString CliArguments::helpText() {
    QString help =
        QStringLiteral(
            "Usage: brackwater-cli [--port PORT]... [--json] [--timeout SECONDS] [--verbose] "
            "[--record FILE] COMMAND [ARGS]\n"
            "\n"
            "The service operations of Brackwater Link without a window, for scripts. It\n"
            "finds the pump as the application does (every serial port in turn, or only\n"
            "those given), runs one command in a session with it, and stops the session\n"
            "before it exits.\n"
            "\n"
            "Options (anywhere on the line):\n"
            "  --port PORT        Talk only to this serial port (repeatable; overrides %1).\n"
            "  --json             Print one JSON document (JSON lines for watch) instead of text.\n"
            "  --timeout SECONDS  How long to wait for a pump to answer (default 10).\n"
            "  --verbose          Echo the log on standard error (it always goes to the log "
            "file).\n"
            "  --record FILE      Record every frame of the session into FILE, for support.\n"
            "  -h, --help         This help.\n"
            "  --version          The program's version.\n"
            "\n"
            "Commands:\n")
            .arg(QString::fromLatin1(common::kPortsVariable));
    for (const CommandEntry& entry : Commands()) {
        help += QStringLiteral("  ") +
                QStringLiteral("%1 %2").arg(entry.name, entry.synopsis).trimmed() +
                QLatin1Char('\n') + wrapped(entry.description, kDescriptionIndent) +
                wrapped(QStringLiteral("Example: ") + entry.example, kDescriptionIndent);
    }
    help += QStringLiteral(
        "\n"
        "Exit status:\n"
        "  0    the operation succeeded\n"
        "  1    it ran and failed; the reason is on standard error, in the application's\n"
        "       own words (\"Incompatible pump settings\", \"Update failed\"...)\n"
        "  2    usage error; nothing was done\n"
        "  3    no pump answered within --timeout\n"
        "  130  interrupted (Ctrl-C) before it ended; the session was stopped\n"
        "\n"
        "Standard output carries only the result; progress and messages go to standard\n"
        "error, the log to brackwater-cli.log in the application's data folder.\n");
    return help;
}

} // namespace cli
