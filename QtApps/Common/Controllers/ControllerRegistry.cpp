#include "ControllerRegistry.h"

#include "PumpSessionController.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Model/PumpSession.h"

#include <QCoreApplication>

namespace communication {

ControllerRegistry::ControllerRegistry(ProtocolComms& comms, const QStringList& portNames,
                                       QCoreApplication& application)
    : mPumpSession(new PumpSession(comms, portNames, &comms))
    , mPumpSessionController(new PumpSessionController(*mPumpSession, this)) {
    // The other controllers join here, in their order, as they arrive.
    PumpSessionController::publish(mPumpSessionController);
    connect(&application, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
}

} // namespace communication
