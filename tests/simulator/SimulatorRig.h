#pragma once

#include "AppSide.h"

#include "tests/support/LinkHarness.h"

#include "tools/pump-simulator/PumpSimulator.h"
#include "tools/pump-simulator/SimulatorOptions.h"

#include <memory>

namespace simtest {

/// A simulated pump in this process on a fresh pseudo-terminal, with the application's side
/// connected to it.
class SimulatorRig {
public:
    /// `arguments` as on the command line, without the program name; a fixed seed is added
    /// unless one is given.
    explicit SimulatorRig(const QStringList& arguments = {});

    bool ok() const { return mOk; }
    simulator::PumpSimulator& sim() { return *mSimulator; }
    AppSide& app() { return mApp; }

    /// Sends a request and waits for its answer: the answer's raw message bytes, or an empty
    /// array when the request timed out.
    QByteArray ask(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                   Operation operation, const QByteArray& payload = {});
    /// The same, answer as hex text ("" on a time-out).
    QString askHex(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                   Operation operation, const QByteArray& payload = {});
    /// Starts a session as the application does (value 1000).
    bool startSession();

private:
    simulator::SimulatorOptions mOptions;
    std::unique_ptr<simulator::PumpSimulator> mSimulator;
    AppSide mApp;
    bool mOk = false;
};

using testsupport::le;

} // namespace simtest
