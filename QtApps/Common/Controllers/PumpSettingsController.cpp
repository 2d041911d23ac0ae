#include "PumpSettingsController.h"

#include "QueuedCall.h"
#include "ReportedFigure.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsLoad.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsSave.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <QUrl>
#include <QVariantMap>

namespace communication {

using halyard::pump::ControlInput;
using pumpSettings::PumpSettings;
using pumpSettings::PumpSettingsLoad;
using pumpSettings::PumpSettingsResultType;
using pumpSettings::PumpSettingsSave;

namespace {

// The file dialogs give URLs ("file:///C:/pumps/a.json"); a plain path ("C:/pumps/a.json",
// whose drive letter a URL would read as its scheme) is taken as a local file.
QUrl settingsFileUrl(const QString& filePath) {
    const QUrl url(filePath);
    return url.isLocalFile() ? url : QUrl::fromLocalFile(filePath);
}

} // namespace

PumpSettingsController::PumpSettingsController(PumpValues& values, QObject* parent)
    : QObject(parent)
    , mValues(values)
    , mSave(new PumpSettingsSave(values, this))
    , mLoad(new PumpSettingsLoad(values, this)) {
    connect(mSave, &PumpSettingsSave::pumpSettingsSave_saveResult, this,
            &PumpSettingsController::onSaveResult);
    connect(mLoad, &PumpSettingsLoad::pumpSettings_loadResult, this,
            &PumpSettingsController::onLoadResult);
    connect(mLoad, &PumpSettingsLoad::previewResult, this,
            &PumpSettingsController::onPreviewResult);
    connect(mSave, &PumpSettings::runningChanged, this,
            &PumpSettingsController::settingsFileBusyChanged);
    connect(mLoad, &PumpSettings::runningChanged, this,
            &PumpSettingsController::settingsFileBusyChanged);
    connect(&values.get<PumpControlInput>(), &PumpControlInput::getControlInputResponse, this,
            &PumpSettingsController::onControlInputReported, Qt::QueuedConnection);
    connect(
        &values.get<PumpHead>(), &PumpHead::getHeadResponse, this,
        [this](const QString& head) {
            mPumpHead = head;
            emit pumpHeadChanged();
        },
        Qt::QueuedConnection);
    connect(
        &values.get<PumpAcceleration>(), &PumpAcceleration::getAccelerationResponse, this,
        [this](float acceleration) {
            mAcceleration = acceleration;
            emit accelerationRpmPerSecondChanged();
        },
        Qt::QueuedConnection);
    connect(
        &values.get<PumpDeceleration>(), &PumpDeceleration::getDecelerationResponse, this,
        [this](float deceleration) {
            mDeceleration = deceleration;
            emit decelerationRpmPerSecondChanged();
        },
        Qt::QueuedConnection);
    connect(
        &values.get<PumpCelerationLimits>(), &PumpCelerationLimits::getLimitsResponse, this,
        [this](const objects::CelerationLimits& limits) {
            mCelerationLimits = limits;
            emit celerationLimitsChanged();
        },
        Qt::QueuedConnection);
    connect(
        &values.get<PumpPrimeSpeed>(), &PumpPrimeSpeed::getPrimeSpeedResponse, this,
        [this](uint32_t speedDrpm) {
            mPrimeSpeedDrpm = reportedFigure<int>(speedDrpm, "PrimeSpeed");
            emit primeSpeedDrpmChanged();
        },
        Qt::QueuedConnection);
}

PumpSettingsController::~PumpSettingsController() = default;

void PumpSettingsController::onControlInputReported(ControlInput controlInput) {
    // The proxy lets only the table's codes through; a code past it still gets a defined text.
    if (wire::codeOf(controlInput) >= wire::codeOf(ControlInput::Count)) {
        logImpossibleReport("onControlInputReported", QStringLiteral("ControlInput"),
                            QStringLiteral("Control input %1 reported, shown as \"None\"")
                                .arg(wire::codeOf(controlInput)));
        controlInput = ControlInput::None;
    }
    mControlInput = objects::ControlInputText(controlInput);
    emit pumpControlInputChanged();
}

void PumpSettingsController::getControlInput() {
    callQueued(mValues.get<PumpControlInput>(), &PumpControlInput::getControlInput);
}

bool PumpSettingsController::setControlInput(const QString& controlInput) {
    // Whole texts only: the lookup also takes a beginning, and "" would begin every text.
    const auto code = objects::ControlInputFromText(controlInput);
    if (controlInput.isEmpty() || !code || objects::ControlInputText(*code) != controlInput) {
        BWL_LOG_WARN("setControlInput",
                     QStringLiteral("No control input \"%1\"; nothing sent").arg(controlInput));
        return false;
    }
    callQueued(mValues.get<PumpControlInput>(), &PumpControlInput::setControlInput, *code);
    return true;
}

void PumpSettingsController::getPumpHead() {
    callQueued(mValues.get<PumpHead>(), &PumpHead::get);
}

void PumpSettingsController::setPumpHead(const QString& pumpHead) {
    callQueued(mValues.get<PumpHead>(), &PumpHead::set, pumpHead);
}

void PumpSettingsController::getAccelerationRpmPerSecond() {
    callQueued(mValues.get<PumpAcceleration>(), &PumpAcceleration::getAcceleration);
}

void PumpSettingsController::setAccelerationRpmPerSecond(float rpmPerSecond) {
    callQueued(mValues.get<PumpAcceleration>(), &PumpAcceleration::setAcceleration, rpmPerSecond);
}

void PumpSettingsController::getDecelerationRpmPerSecond() {
    callQueued(mValues.get<PumpDeceleration>(), &PumpDeceleration::getDeceleration);
}

void PumpSettingsController::setDecelerationRpmPerSecond(float rpmPerSecond) {
    callQueued(mValues.get<PumpDeceleration>(), &PumpDeceleration::setDeceleration, rpmPerSecond);
}

void PumpSettingsController::getCelerationLimits() {
    callQueued(mValues.get<PumpCelerationLimits>(), &PumpCelerationLimits::getLimits);
}

void PumpSettingsController::getPrimeSpeedDrpm() {
    callQueued(mValues.get<PumpPrimeSpeed>(), &PumpPrimeSpeed::getPrimeSpeed);
}

bool PumpSettingsController::setPrimeSpeedDrpm(double speedDrpm) {
    const auto speed = requestedFigure<uint32_t>(speedDrpm, "PrimeSpeed", "setPrimeSpeedDrpm");
    if (speed) {
        callQueued(mValues.get<PumpPrimeSpeed>(), &PumpPrimeSpeed::setPrimeSpeed, *speed);
    }
    return speed.has_value();
}

void PumpSettingsController::resetPump() {
    callQueued(mValues.get<PumpReset>(), &PumpReset::reset);
}

bool PumpSettingsController::settingsFileBusy() const {
    return mSave->running() || mLoad->running();
}

bool PumpSettingsController::idle(const char* what) const {
    if (settingsFileBusy()) {
        BWL_LOG_WARN(what, QStringLiteral("%1 refused: a save, preview or load is running")
                               .arg(QString::fromLatin1(what)));
        return false;
    }
    return true;
}

bool PumpSettingsController::save(const QString& filePath) {
    return idle("save") && mSave->save(settingsFileUrl(filePath));
}

bool PumpSettingsController::load(const QString& filePath) {
    return idle("load") && mLoad->load(settingsFileUrl(filePath));
}

bool PumpSettingsController::previewLoad(const QString& filePath) {
    return idle("previewLoad") && mLoad->preview(settingsFileUrl(filePath));
}

void PumpSettingsController::onSaveResult(bool success, PumpSettingsResultType result) {
    mSaveSuccess = success;
    mSaveResult = PumpSettings::resultText(result);
    emit configSaveResultReceived();
}

void PumpSettingsController::onLoadResult(bool success, PumpSettingsResultType result) {
    mLoadSuccess = success;
    mLoadResult = PumpSettings::resultText(result);
    mNotApplied = mLoad->notApplied();
    emit configLoadResultReceived();
}

void PumpSettingsController::onPreviewResult(bool success, PumpSettingsResultType result) {
    mPreview.clear();
    for (const pumpSettings::SettingComparison& comparison : mLoad->comparisons()) {
        mPreview.append(QVariantMap{{QStringLiteral("setting"), comparison.setting},
                                    {QStringLiteral("pumpValue"), comparison.pumpValue},
                                    {QStringLiteral("fileValue"), comparison.fileValue},
                                    {QStringLiteral("changed"), comparison.changed}});
    }
    mPreviewResult = success ? QString() : PumpSettings::resultText(result);
    emit loadPreviewReady(success);
}

} // namespace communication
