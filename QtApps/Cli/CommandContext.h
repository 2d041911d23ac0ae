#pragma once

namespace common {
class ApplicationCore;
}

namespace cli {

class CliOutput;
struct CliInvocation;

/// What every command works with: its command line, the application's core (controllers,
/// models, values and link, as the window has them) and the output.
struct CommandContext {
    const CliInvocation& invocation;
    common::ApplicationCore& core;
    CliOutput& output;
};

} // namespace cli
