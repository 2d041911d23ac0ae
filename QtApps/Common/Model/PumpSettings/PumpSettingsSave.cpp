#include "PumpSettingsSave.h"

#include "QtApps/Common/Logger/Log.h"

#include <QJsonDocument>
#include <QSaveFile>

namespace pumpSettings {

PumpSettingsSave::PumpSettingsSave(communication::PumpValues& values, QObject* parent)
    : PumpSettings(values, parent) {}

bool PumpSettingsSave::save(const QUrl& filePath) {
    if (!begin("Save")) {
        return false;
    }
    mFile.setFileName(filePath.toLocalFile());
    if (!canWrite(filePath)) {
        finish(false, PumpSettingsResultType::CouldNotOpenFile);
        return true;
    }
    requestDetails();
    return true;
}

// Before the pump is asked anything: a folder that cannot be written, or a target that may not
// be replaced, is known at once.
bool PumpSettingsSave::canWrite(const QUrl& filePath) {
    const QString path = filePath.toLocalFile();
    QSaveFile probe(path);
    if (path.isEmpty() || !probe.open(QIODevice::WriteOnly)) {
        BWL_LOG_WARN("OpenFile", QStringLiteral("Could not open selected file"));
        BWL_LOG_DEBUG("OpenFile", QStringLiteral("\"%1\": %2").arg(path, probe.errorString()));
        return false;
    }
    probe.cancelWriting();
    return true;
}

void PumpSettingsSave::onDetails() {
    buildSections();
    connectSections();
    for (auto& [name, section] : mSections) {
        section->request();
    }
}

void PumpSettingsSave::onValueAnswered() {
    if (!mTimeout.isActive() || !sectionsComplete() || !confirmRead()) {
        return;
    }
    mTimeout.stop();
    mRoot = QJsonObject();
    for (auto& [name, section] : mSections) {
        mRoot.insert(name, section->toJson());
    }
    writeJsonToFile();
}

void PumpSettingsSave::writeJsonToFile() {
    QSaveFile file(mFile.fileName());
    if (!file.open(QIODevice::WriteOnly)) {
        BWL_LOG_WARN("WriteJsonToFile", QStringLiteral("Couldn't open save file."));
        finish(false, PumpSettingsResultType::CouldNotOpenFile);
        return;
    }
    file.write(QJsonDocument(mRoot).toJson(QJsonDocument::Indented));
    if (!file.commit()) {
        BWL_LOG_WARN("WriteJsonToFile", QStringLiteral("Couldn't write save file \"%1\": %2")
                                            .arg(mFile.fileName(), file.errorString()));
        finish(false, PumpSettingsResultType::CouldNotOpenFile);
        return;
    }
    BWL_LOG_INFO("WriteJsonToFile",
                 QStringLiteral("Pump settings saved to \"%1\"").arg(mFile.fileName()));
    finish(true, PumpSettingsResultType::Success);
}

void PumpSettingsSave::onTimeout() {
    BWL_LOG_WARN("OnTimeout", QStringLiteral("OnTimeout: Timed out requesting settings."));
    dropSections();
    finish(false, PumpSettingsResultType::PumpResponseTimeout);
}

void PumpSettingsSave::finish(bool success, PumpSettingsResultType result) {
    end();
    emit pumpSettingsSave_saveResult(success, result);
}

} // namespace pumpSettings
