#pragma once

namespace cli {

/// What brackwater-cli's exit status tells a script.
enum class ExitStatus : int {
    Success = 0,      ///< the operation succeeded
    Failed = 1,       ///< it ran and failed; the reason is on standard error
    UsageError = 2,   ///< the command line was wrong; nothing was done
    NoPump = 3,       ///< no pump answered within --timeout
    Interrupted = 130 ///< stopped by Ctrl-C (or SIGTERM) before it ended
};

constexpr int code(ExitStatus status) {
    return static_cast<int>(status);
}

} // namespace cli
