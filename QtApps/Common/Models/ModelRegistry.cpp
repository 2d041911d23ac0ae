#include "ModelRegistry.h"

#include "PumpFaultsModel.h"
#include "PumpFaultsSortFilterProxyModel.h"
#include "PumpHeadsModel.h"
#include "PumpHeadsSortFilterProxyModel.h"
#include "PumpLogModel.h"
#include "PumpSimulatedFaultsModel.h"
#include "PumpTorqueTargetsModel.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QCoreApplication>

namespace models {

using namespace communication;

ModelRegistry::ModelRegistry(PumpValues& values, ControllerRegistry& controllers,
                             QCoreApplication& application)
    : mFaults(new faults::PumpFaultsModel(values.get<PumpFaults>(), this))
    , mLog(new log::PumpLogModel(values.get<PumpLog>(), this)) {
    auto* headsModel = new pumpHeads::PumpHeadsModel(values.get<PumpHeads>(), this);

    pumpHeads::PumpHeadsSortFilterProxyModel::publish(
        new pumpHeads::PumpHeadsSortFilterProxyModel(*headsModel, this));
    faults::PumpFaultsSortFilterProxyModel::publish(
        new faults::PumpFaultsSortFilterProxyModel(*mFaults, this));
    log::PumpLogModel::publish(mLog);
    torque::PumpTorqueTargetsModel::publish(new torque::PumpTorqueTargetsModel(
        values.get<PumpTorqueTargets>(), values.get<PumpTorqueIndex>(), this));
    faults::PumpSimulatedFaultsModel::publish(new faults::PumpSimulatedFaultsModel(
        values.get<PumpFaults>(), controllers.pumpSessionController(), this));

    connect(&application, &QCoreApplication::aboutToQuit, this, &QObject::deleteLater);
}

} // namespace models
