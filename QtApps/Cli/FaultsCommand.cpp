#include "FaultsCommand.h"

#include "CliOutput.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/ModelRegistry.h"
#include "QtApps/Common/Models/PumpFaultsModel.h"

#include <QJsonArray>

namespace cli {

using communication::PumpFaults;
using communication::PumpValueBase;
using models::faults::PumpFaultsModel;

QStringList FaultsCommand::activeFaults(const PumpFaultsModel& model) {
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row);
        if (model.data(index, PumpFaultsModel::ActiveRole).toBool()) {
            names << model.data(index, PumpFaultsModel::NameRole).toString();
        }
    }
    return names;
}

void FaultsCommand::run() {
    PumpFaultsModel& faults = models().pumpFaultsModel();
    connect(&faults, &PumpFaultsModel::faultActiveChanged, this, [this, &faults] {
        if (finishing()) {
            return;
        }
        const QStringList active = activeFaults(faults);
        for (const QString& name : active) {
            output().line(name);
        }
        output().field(QStringLiteral("faults"), QJsonArray::fromStringList(active));
        communication::callQueued(values().get<PumpFaults>(), &PumpValueBase::unsubscribe);
        succeed();
    });
    expectAnswerWithin();
    communication::callQueued(values().get<PumpFaults>(), &PumpValueBase::subscribe);
}

} // namespace cli
