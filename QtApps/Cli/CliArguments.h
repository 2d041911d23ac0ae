#pragma once

#include "CliInvocation.h"

#include <QString>
#include <QStringList>

namespace cli {

/// Reads brackwater-cli's command line:
///
///     brackwater-cli [--port PORT]... [--json] [--timeout SECONDS] [--verbose] COMMAND [ARGS]
///
/// Options may stand anywhere; those of one command (--seconds, --dry-run, --restore-settings)
/// only with that command.
class CliArguments {
public:
    enum class Action {
        Run,        ///< run `invocation`
        Help,       ///< print helpText() and exit 0
        Version,    ///< print the version and exit 0
        UsageError, ///< print `error` and exit 2
    };

    /// `arguments` as QCoreApplication::arguments() gives them (the program first).
    static CliArguments parse(const QStringList& arguments);

    /// Every option and command, with an example each, and the exit statuses.
    static QString helpText();

    Action action() const { return mAction; }
    const CliInvocation& invocation() const { return mInvocation; }
    const QString& error() const { return mError; }

private:
    void failWith(const QString& error);

    Action mAction = Action::Run;
    CliInvocation mInvocation;
    QString mError;
};

} // namespace cli
