#include "ExportLogCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"

#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/ModelRegistry.h"
#include "QtApps/Common/Models/PumpLogModel.h"

#include <QFileInfo>

#include <algorithm>

namespace cli {

using communication::PumpLog;
using communication::objects::LoggerObject;

void ExportLogCommand::run() {
    // Queued like the model's own connection, and made after it: the model has its rows when
    // onLogRead runs.
    connect(&values().get<PumpLog>(), &PumpLog::logUpdated, this, &ExportLogCommand::onLogRead,
            Qt::QueuedConnection);
    // Each entry as the proxy delivers it, for the progress and to know the pump still answers.
    auto& logger = protocolObjects().get<LoggerObject>();
    connect(&logger, &LoggerObject::getFirstLogEntryResponse, this, &ExportLogCommand::onEntryRead,
            Qt::QueuedConnection);
    connect(&logger, &LoggerObject::getNextLogEntryResponse, this, &ExportLogCommand::onEntryRead,
            Qt::QueuedConnection);
    expectAnswerWithin();
    if (!models().pumpLogModel().getPumpLog()) {
        fail(tr("The log read could not be started"));
    }
}

void ExportLogCommand::onEntryRead() {
    expectAnswerWithin();
    ++mEntriesRead;
    if (output().progressIsRedrawn() || mEntriesRead % kProgressStep == 0) {
        output().progress(-1, tr("Reading the pump log: %n entries", nullptr, mEntriesRead));
    }
}

void ExportLogCommand::onLogRead(const QStringList& entries) {
    answered();
    output().endProgress();
    const QString path = QFileInfo(invocation().arguments.value(0)).absoluteFilePath();
    const bool written = models().pumpLogModel().exportToFile(
        path, details().pumpSerial(), details().appVersion(), QStringLiteral(BWL_VERSION));
    if (!written) {
        fail(tr("Could not write %1").arg(path));
        return;
    }
    // An empty log still makes one (empty) row, as the pump's first answer: it is no entry.
    const auto count = std::count_if(entries.cbegin(), entries.cend(),
                                     [](const QString& entry) { return !entry.isEmpty(); });
    output().line(QString::number(count));
    output().field(QStringLiteral("entries"), static_cast<qint64>(count));
    output().field(QStringLiteral("file"), path);
    succeed();
}

} // namespace cli
