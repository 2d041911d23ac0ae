#include "SaveSettingsCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/PumpSettingsController.h"

#include <QFileInfo>
#include <QUrl>

namespace cli {

using communication::PumpSettingsController;

QString SaveSettingsCommand::fileUrl(const QString& path) {
    return QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toString();
}

void SaveSettingsCommand::run() {
    PumpSettingsController& settings = controllers().settingsController();
    const QString path = QFileInfo(invocation().arguments.value(0)).absoluteFilePath();
    connect(&settings, &PumpSettingsController::configSaveResultReceived, this,
            [this, &settings, path] {
                if (!settings.configSaveSuccess()) {
                    fail(settings.configSaveResult());
                    return;
                }
                output().line(settings.configSaveResult());
                output().field(QStringLiteral("result"), settings.configSaveResult());
                output().field(QStringLiteral("file"), path);
                succeed();
            });
    if (!settings.save(fileUrl(path))) {
        fail(tr("Another settings save or load is running"));
    }
}

} // namespace cli
