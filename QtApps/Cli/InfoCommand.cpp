#include "InfoCommand.h"

#include "CliOutput.h"

#include "QtApps/Common/Controllers/PumpDetailsController.h"

namespace cli {

void InfoCommand::run() {
    const communication::PumpDetailsController& pump = details();
    CliOutput& out = output();
    out.keyValue(QStringLiteral("pumpSerial"), pump.pumpSerial());
    out.keyValue(QStringLiteral("partNumber"), pump.partNumber());
    out.keyValue(QStringLiteral("productDescription"), pump.productDescription());
    out.keyValue(QStringLiteral("deviceType"), pump.deviceType());
    out.keyValue(QStringLiteral("pumpType"), pump.pumpType());
    out.keyValue(QStringLiteral("motorType"), pump.motorType());
    out.keyValue(QStringLiteral("headType"), pump.headType());
    out.keyValue(QStringLiteral("isStepperPump"), pump.isStepperPump());
    out.keyValue(QStringLiteral("isNetworkPump"), pump.isNetworkPump());
    out.keyValue(QStringLiteral("appVersion"), pump.appVersion());
    out.keyValue(QStringLiteral("protocolVersion"), pump.protocolVersion());
    out.keyValue(QStringLiteral("cliVersion"), QStringLiteral(BWL_VERSION));
    succeed();
}

} // namespace cli
