#pragma once

#include "Command.h"

#include <QStringList>

namespace cli {

/// `export-log FILE`: reads the pump's event log through the log model, as the maintenance tab
/// does, and appends the model's export to FILE (the same format and append mode; the header
/// lines carry the pump's serial number, its application version and this program's version).
/// Prints the number of entries. While the log is read, the count of entries read so far is the
/// progress on standard error (the pump does not say beforehand how many it holds).
class ExportLogCommand final : public Command {
    Q_OBJECT

public:
    /// Off a terminal, a progress line every this many entries.
    static constexpr int kProgressStep = 25;

    explicit ExportLogCommand(CommandContext& context, QObject* parent = nullptr)
        : Command(QStringLiteral("export-log"), context, parent) {}

protected:
    void run() override;

private:
    void onEntryRead();
    void onLogRead(const QStringList& entries);

    int mEntriesRead = 0;
};

} // namespace cli
