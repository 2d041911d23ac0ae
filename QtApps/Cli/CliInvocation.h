#pragma once

#include <QString>
#include <QStringList>

namespace cli {

/// One run of brackwater-cli as its command line asks it.
struct CliInvocation {
    static constexpr int kDefaultTimeoutMs = 10000;

    QString command;       ///< "info", "save-settings", ...
    QStringList arguments; ///< the command's own (FILE, BUNDLE)
    QStringList ports;     ///< --port, else BRACKWATER_LINK_PORTS; empty: every listed port
    bool json = false;     ///< --json
    bool verbose = false;  ///< --verbose: the log on standard error too
    QString recordPath;    ///< --record: the session recording's file; empty: as set
    int timeoutMs = kDefaultTimeoutMs; ///< --timeout: how long to wait for a pump
    int seconds = 0;                   ///< watch --seconds; 0: until interrupted
    bool dryRun = false;               ///< load-settings --dry-run
    bool restoreSettings = false;      ///< update-firmware --restore-settings
};

} // namespace cli
