#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace cli {

class Command;
struct CommandContext;

/// What the help says of a command, and what its command line may hold.
struct CommandEntry {
    QString name;
    /// Its own positional arguments ("FILE", "BUNDLE"), empty for none.
    QString argument;
    /// The options that belong to it alone ("seconds", "dry-run", "restore-settings").
    QStringList options;
    /// Its synopsis after the name, for the help ("FILE [--dry-run]").
    QString synopsis;
    QString description;
    QString example;
    std::unique_ptr<Command> (*create)(CommandContext& context);
};

/// The commands of brackwater-cli, in the order the help lists them.
const QList<CommandEntry>& Commands();
/// The command called `name`, or null.
const CommandEntry* FindCommand(const QString& name);
/// Builds the command that `context.invocation` names; null for a name that is none.
std::unique_ptr<Command> CreateCommand(CommandContext& context);

} // namespace cli
