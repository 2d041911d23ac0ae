#include "ClearFaultsCommand.h"

#include "CliOutput.h"
#include "FaultsCommand.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/PumpValuesController.h"
#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettings.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/ModelRegistry.h"
#include "QtApps/Common/Models/PumpFaultsModel.h"

#include <QJsonArray>

namespace cli {

using communication::PumpFaults;
using communication::PumpValueBase;
using models::faults::PumpFaultsModel;

ClearFaultsCommand::ClearFaultsCommand(CommandContext& context, QObject* parent)
    : Command(QStringLiteral("clear-faults"), context, parent) {
    mSettle.setSingleShot(true);
    connect(&mSettle, &QTimer::timeout, this, &ClearFaultsCommand::onSettled);
}

// The faults are acknowledged once the pump has reported them, so that every later report
// tells what the acknowledgement left.
void ClearFaultsCommand::run() {
    connect(&models().pumpFaultsModel(), &PumpFaultsModel::faultActiveChanged, this,
            &ClearFaultsCommand::onFaultsReported);
    expectAnswerWithin();
    communication::callQueued(values().get<PumpFaults>(), &PumpValueBase::subscribe);
}

void ClearFaultsCommand::onFaultsReported() {
    if (finishing()) {
        return;
    }
    answered();
    if (!mAcknowledged) {
        mAcknowledged = true;
        controllers().valuesController().acknowledgeFaults();
        mSettle.start(kSettleMs);
        return;
    }
    if (FaultsCommand::activeFaults(models().pumpFaultsModel()).isEmpty()) {
        mSettle.stop();
        output().line(tr("Faults cleared"));
        output().field(QStringLiteral("faults"), QJsonArray());
        communication::callQueued(values().get<PumpFaults>(), &PumpValueBase::unsubscribe);
        succeed();
    }
}

void ClearFaultsCommand::onSettled() {
    const QStringList active = FaultsCommand::activeFaults(models().pumpFaultsModel());
    if (active.isEmpty()) {
        // Nothing reported since the acknowledgement, though the pump reports every second.
        fail(pumpSettings::PumpSettings::resultText(
            pumpSettings::PumpSettingsResultType::PumpResponseTimeout));
        return;
    }
    output().field(QStringLiteral("faults"), QJsonArray::fromStringList(active));
    fail(tr("Faults still active: %1").arg(active.join(QStringLiteral(", "))));
}

} // namespace cli
