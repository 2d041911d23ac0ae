#pragma once

#include "Command.h"

#include <QJsonValue>
#include <QTimer>

namespace cli {

/// `watch [--seconds N]`: subscribes the readings of the status panel, as the panel does, and
/// prints each reading as it arrives: "<time> <name> <value> <unit>", or one JSON object per
/// line ({"time", "name", "value", "unit"}). It ends after N seconds, or at Ctrl-C, which for
/// this command is its normal end (status 0).
///
/// Readings (unit): speed (rpm, negative in reverse), direction ("clockwise" or
/// "counter-clockwise"), supply (V), temperature (C), power (W), inputCurrent (mA), inputVoltage
/// (V), inputFrequency (Hz) (the three inputs on analog pumps only), coverOpen, primeActive,
/// enableLineAsserted, motorEnergized (true or false), faults (the active faults' names).
class WatchCommand final : public Command {
    Q_OBJECT

public:
    explicit WatchCommand(CommandContext& context, QObject* parent = nullptr);

    void interrupt() override;

protected:
    void run() override;

private:
    /// Prints one reading; `decimals` rounds a number.
    void print(const QString& name, const QJsonValue& value, const QString& unit, int decimals = 0);
    void printFaults();
    void stopWatching();

    QTimer mDuration;
};

} // namespace cli
