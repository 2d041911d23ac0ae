// CPU cost of the controllers and the values below them, on the link thread and on the
// user-interface thread, against the pump simulator: every controller subscribed as the main
// screen subscribes it (the status panel's readings, the application speed, the target speeds)
// and the current filter's data streaming every 30 ms, for a given time. Prints each thread's
// CPU time as a share of one core. Usage: controllers_cpu_bench [SECONDS]

#include "ThreadCpu.h"

#include "QtApps/Common/Controllers/PumpAnalogFilterController.h"
#include "QtApps/Common/Controllers/PumpApplicationSpeedController.h"
#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Controllers/PumpSpeedRangeController.h"
#include "QtApps/Common/Controllers/PumpValuesController.h"
#include "QtApps/Common/Core/Communication/SystemWrapper.h"
#include "QtApps/Common/Logger/LogSetup.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionCurrent.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionFrequency.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionVoltage.h"
#include "tests/support/SimulatorLink.h"

#include <QCoreApplication>

#include <cstdio>

using namespace communication;
using bench::runFor;
using bench::ThreadShares;
using testsupport::SimulatorLink;

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    logger::ConfigureDefaults();
    const int seconds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30;

    SimulatorLink link({}, SimulatorLink::Values::With);
    QString error;
    if (!link.start(error)) {
        std::fprintf(stderr, "controllers_cpu_bench: %s\n", qPrintable(error));
        return 1;
    }
    PumpValues& values = link.values();
    // The link keeps its own session; this one only tells the controllers a pump is there.
    PumpSession session(link.comms());
    wrappers::SystemWrapper clock;
    PumpDetailsController details(values, session);
    PumpValuesController readings(values, details);
    PumpApplicationSpeedController applicationSpeed(values);
    speedResolution::SpeedResolutionCurrent current(&values.get<PumpCurrentSpeedRange>());
    speedResolution::SpeedResolutionVoltage voltage(&values.get<PumpVoltageSpeedRange>());
    speedResolution::SpeedResolutionFrequency frequency(&values.get<PumpFrequencySpeedRange>());
    PumpSpeedRangeController speedRanges(values, current, voltage, frequency);
    PumpAnalogFilterController filters(values, clock);

    emit session.pumpConnectionChanged(true);
    readings.subscribe();
    applicationSpeed.subscribe();
    applicationSpeed.getApplicationOverrideActive();
    applicationSpeed.getMaxApplicationSpeed();
    applicationSpeed.getApplicationSpeedEnable();
    speedRanges.subscribe();
    speedRanges.getAllSpeedRanges();
    speedRanges.getAllSpeedRangeLimits();
    filters.subscribeCurrentFilterData();
    long notifications = 0;
    QObject::connect(&filters, &PumpAnalogFilterController::currentFilterDataChanged,
                     [&notifications] { ++notifications; });
    QObject::connect(&readings, &PumpValuesController::pumpActualSpeedChanged,
                     [&notifications] { ++notifications; });
    runFor(2000); // subscriptions in place, the first answers in

    const long notificationsStart = notifications;
    const ThreadShares shares = ThreadShares::measure(link, seconds);

    std::printf("controllers_cpu_bench: %d s, %.0f filter and speed notifications/s, details %s\n",
                seconds, static_cast<double>(notifications - notificationsStart) / seconds,
                details.pumpDetailsKnown() ? "known" : "MISSING");
    shares.print(2);
    return 0;
}
