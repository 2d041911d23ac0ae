#include "ModelRegistry.h"

#include <QCoreApplication>

namespace models {

ModelRegistry::ModelRegistry(communication::ControllerRegistry& /*controllers*/,
                             QCoreApplication& application) {
    connect(&application, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
}

} // namespace models
