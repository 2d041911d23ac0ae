#pragma once

#include "Common/Protocol/SemanticVersion.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace simulator {

/// Fault injection for the frames of one direction of the line. Rates are probabilities 0..1,
/// drawn per frame.
struct DirectionFaults {
    double dropRate = 0.0;
    double corruptRate = 0.0;
    double duplicateRate = 0.0;
};

/// Everything the command line can choose.
struct SimulatorOptions {
    enum class Variant { Analog, Network };
    enum class Motor { Stepper, Bldc };
    /// A failure the firmware-update object plays once, on the first transfer that gets that far.
    enum class FirmwareFault { None, Erase, Program, Verify, Silent };

    // The line.
    bool usePty = true;
    QString devicePath;
    bool paceAtLineRate = false;
    int unplugAfterMs = -1; // never

    // The pump.
    Variant variant = Variant::Analog;
    Motor motor = Motor::Stepper;
    int deviceType = -1; // derived from variant and motor unless given
    int motorType = -1;  // derived from motor unless given
    std::uint8_t headType = 0;
    /// How the pump is controlled at power-on (default 5, application).
    std::uint8_t controlInput = 5;
    QString serialNumber = QStringLiteral("SIM-000001");
    QString partNumber = QStringLiteral("BWD-100-SIM");
    QString productDescription = QStringLiteral("Simulated peristaltic pump drive");
    halyard::SemanticVersion firmwareVersion{1, 16, 1};
    halyard::SemanticVersion protocolVersion{1, 0, 0};
    int maxSubscriptions = 32;
    /// Speeds set above the fitted head's rated speed are reduced to it, as a drive that
    /// protects its head does (the Set is still acknowledged).
    bool clampSpeedsToHead = false;

    // Link behaviour and fault injection.
    int replyLatencyMs = 0;
    DirectionFaults faultsIn;  // frames from the application
    DirectionFaults faultsOut; // frames to the application
    int stallMs = 0;           // length of each stall; 0 = no stalls
    int stallIntervalMs = 5000;
    std::uint64_t seed = 0;
    bool seedGiven = false;
    FirmwareFault firmwareFault = FirmwareFault::None;
    /// New application firmware starts with the settings' defaults, as after an update that
    /// changes the layout of the pump's non-volatile memory.
    bool firmwareResetsSettings = false;
    QString frameLogPath; // "-" = standard error
    /// A session recording whose pump side is played back instead of the simulated pump.
    QString replayPath;
    bool console = true;

    std::uint8_t effectiveDeviceType() const;
    std::uint8_t effectiveMotorType() const;
    bool isNetwork() const { return variant == Variant::Network; }
    bool isStepper() const { return motor == Motor::Stepper; }

    /// Parses the arguments (the first one is the program name). On failure returns nothing and
    /// sets `error`; `--help` and `--version` are handled by the caller through `helpText`.
    static std::optional<SimulatorOptions> parse(const QStringList& arguments, QString& error,
                                                 bool& helpRequested);
    static QString helpText();
};

} // namespace simulator
