#include "ControllerRegistry.h"

#include "PumpSessionController.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Model/PumpSession.h"

#include <QCoreApplication>
#include <QQmlEngine>

namespace communication {

namespace {
template <typename Controller>
void RegisterSingleton(const char* module, const char* typeName, Controller* controller) {
    qmlRegisterSingletonInstance(module, 1, 0, typeName, controller);
}
} // namespace

ControllerRegistry::ControllerRegistry(ProtocolComms& comms, const QStringList& portNames,
                                       QCoreApplication& application)
    : mPumpSession(new PumpSession(comms, portNames, &comms))
    , mPumpSessionController(new PumpSessionController(*mPumpSession, this)) {
    // The other controllers join here, in their order, as they arrive.
    RegisterSingleton("cpp.PumpSessionController", "PumpSessionController", mPumpSessionController);
    connect(&application, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
}

} // namespace communication
