#include "ClearLogCommand.h"

#include "CliOutput.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettings.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/ModelRegistry.h"
#include "QtApps/Common/Models/PumpLogModel.h"

namespace cli {

using communication::PumpLog;

void ClearLogCommand::run() {
    PumpLog& log = values().get<PumpLog>();
    // The log is read again once the pump has cleared it: that read ending is the success.
    connect(
        &log, &PumpLog::logUpdated, this,
        [this] {
            output().line(tr("Log cleared"));
            output().field(QStringLiteral("cleared"), true);
            succeed();
        },
        Qt::QueuedConnection);
    connect(
        &log, &PumpLog::setValueAborted, this,
        [this] {
            fail(pumpSettings::PumpSettings::resultText(
                pumpSettings::PumpSettingsResultType::PumpResponseTimeout));
        },
        Qt::QueuedConnection);
    // The pump is still answering while the fresh read goes on.
    auto& logger = protocolObjects().get<communication::objects::LoggerObject>();
    connect(
        &logger, &communication::objects::LoggerObject::getNextLogEntryResponse, this,
        [this] { expectAnswerWithin(); }, Qt::QueuedConnection);
    expectAnswerWithin();
    if (!models().pumpLogModel().clearPumpLog()) {
        fail(tr("The log clear could not be started"));
    }
}

} // namespace cli
