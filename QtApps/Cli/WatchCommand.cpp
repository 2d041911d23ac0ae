#include "WatchCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"
#include "FaultsCommand.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/PumpValuesController.h"
#include "QtApps/Common/Models/ModelRegistry.h"
#include "QtApps/Common/Models/PumpFaultsModel.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>

namespace cli {

using communication::PumpValuesController;
using models::faults::PumpFaultsModel;

namespace {

QString now() {
    const QDateTime time = QDateTime::currentDateTime();
    return time.toOffsetFromUtc(time.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

} // namespace

WatchCommand::WatchCommand(CommandContext& context, QObject* parent)
    : Command(QStringLiteral("watch"), context, parent) {
    // Also a failure before the first reading is a line of the stream.
    output().streamRecords();
    mDuration.setSingleShot(true);
    connect(&mDuration, &QTimer::timeout, this, &WatchCommand::stopWatching);
}

void WatchCommand::interrupt() {
    stopWatching();
}

void WatchCommand::run() {
    PumpValuesController& readings = controllers().valuesController();
    const auto follow = [this, &readings](void (PumpValuesController::*signal)(),
                                          auto printReading) {
        connect(&readings, signal, this, [&readings, printReading] { printReading(readings); });
    };
    const auto onOff = [](bool on) { return QJsonValue(on); };
    follow(&PumpValuesController::pumpActualSpeedChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("speed"), r.pumpActualSpeedDrpm() / 10.0, QStringLiteral("rpm"), 1);
    });
    follow(&PumpValuesController::directionChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("direction"),
              r.directionIsForward() ? QStringLiteral("clockwise")
                                     : QStringLiteral("counter-clockwise"),
              QString());
    });
    follow(&PumpValuesController::pumpBusVoltageChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("supply"), r.pumpBusVoltage() / 1000.0, QStringLiteral("V"), 2);
    });
    follow(&PumpValuesController::pumpTempChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("temperature"), r.pumpTemperature(), QStringLiteral("C"), 1);
    });
    follow(&PumpValuesController::powerUsageChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("power"), r.powerUsageW(), QStringLiteral("W"), 1);
    });
    follow(&PumpValuesController::pumpInputCurrentChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("inputCurrent"), r.pumpInputCurrentUa() / 1000.0, QStringLiteral("mA"),
              2);
    });
    follow(&PumpValuesController::pumpInputVoltageChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("inputVoltage"), r.pumpInputVoltageMv() / 1000.0, QStringLiteral("V"),
              2);
    });
    follow(&PumpValuesController::pumpInputFrequencyChanged, [this](PumpValuesController& r) {
        print(QStringLiteral("inputFrequency"), r.pumpInputFrequencyHz(), QStringLiteral("Hz"), 1);
    });
    follow(&PumpValuesController::pumpCoverStatusChanged, [this, onOff](PumpValuesController& r) {
        print(QStringLiteral("coverOpen"), onOff(r.pumpCoverOpen()), QString());
    });
    follow(&PumpValuesController::pumpPrimeInputStateChanged,
           [this, onOff](PumpValuesController& r) {
               print(QStringLiteral("primeActive"), onOff(r.pumpPrimeInputState()), QString());
           });
    follow(
        &PumpValuesController::enableLineAssertedChanged, [this, onOff](PumpValuesController& r) {
            print(QStringLiteral("enableLineAsserted"), onOff(r.enableLineAsserted()), QString());
        });
    follow(&PumpValuesController::isEnergizedChanged, [this, onOff](PumpValuesController& r) {
        print(QStringLiteral("motorEnergized"), onOff(r.isMotorEnergized()), QString());
    });
    // The fault word is streamed with the readings, for the panel's fault list.
    connect(&models().pumpFaultsModel(), &PumpFaultsModel::faultActiveChanged, this,
            &WatchCommand::printFaults);

    readings.subscribe();
    if (invocation().seconds > 0) {
        mDuration.start(invocation().seconds * 1000);
    }
}

void WatchCommand::print(const QString& name, const QJsonValue& value, const QString& unit,
                         int decimals) {
    if (finishing()) {
        return;
    }
    QJsonValue shown = value;
    if (value.isDouble()) {
        shown = QString::number(value.toDouble(), 'f', decimals).toDouble();
    }
    if (output().isJson()) {
        output().record(QJsonObject{{QStringLiteral("time"), now()},
                                    {QStringLiteral("name"), name},
                                    {QStringLiteral("value"), shown},
                                    {QStringLiteral("unit"), unit}});
        return;
    }
    QString text = value.isDouble() ? QString::number(value.toDouble(), 'f', decimals)
                                    : CliOutput::textOf(value);
    if (value.isArray() && value.toArray().isEmpty()) {
        text = QStringLiteral("none");
    }
    output().line(QStringLiteral("%1 %2 %3 %4").arg(now(), name, text, unit).trimmed());
}

void WatchCommand::printFaults() {
    print(QStringLiteral("faults"),
          QJsonArray::fromStringList(FaultsCommand::activeFaults(models().pumpFaultsModel())),
          QString());
}

void WatchCommand::stopWatching() {
    if (!finishing()) {
        controllers().valuesController().unsubscribe();
        succeed();
    }
}

} // namespace cli
