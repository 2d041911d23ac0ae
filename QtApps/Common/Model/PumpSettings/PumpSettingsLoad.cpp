#include "PumpSettingsLoad.h"

#include "SettingsDocument.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <algorithm>

namespace pumpSettings {

PumpSettingsLoad::PumpSettingsLoad(communication::PumpValues& values, QObject* parent)
    : PumpSettings(values, parent) {
    mResetTimer.setSingleShot(true);
    mResetTimer.setTimerType(Qt::PreciseTimer);
    connect(&mResetTimer, &QTimer::timeout, this, &PumpSettingsLoad::resetPump);
}

bool PumpSettingsLoad::load(const QUrl& filePath) {
    return start(filePath, Mode::Load);
}

bool PumpSettingsLoad::preview(const QUrl& filePath) {
    return start(filePath, Mode::Preview);
}

bool PumpSettingsLoad::start(const QUrl& filePath, Mode mode) {
    if (!begin(mode == Mode::Load ? "Load" : "Preview")) {
        return false;
    }
    mMode = mode;
    mComparisons.clear();
    mNotApplied.clear();
    mRoot = QJsonObject();
    if (!openFile(filePath, QIODevice::ReadOnly)) {
        finish(false, PumpSettingsResultType::CouldNotOpenFile);
        return true;
    }
    const auto failure = readRoot();
    mFile.close();
    if (failure) {
        finish(false, *failure);
        return true;
    }
    mPhase = Phase::Details;
    requestDetails();
    return true;
}

std::optional<PumpSettingsResultType> PumpSettingsLoad::readRoot() {
    // Read with a bound, so that neither a huge file nor an endless device is taken in whole.
    const auto root = settingsDocumentRoot(mFile.read(kMaxSettingsFileBytes + 1));
    if (!root) {
        return PumpSettingsResultType::InvalidFileFormat;
    }
    mRoot = *root;
    return std::nullopt;
}

void PumpSettingsLoad::onDetails() {
    buildSections();
    // Every section is checked before anything goes to the pump.
    for (auto& [name, section] : mSections) {
        const QJsonValue object = mRoot.value(name);
        if (!object.isObject()) {
            BWL_LOG_WARN("onDetails",
                         QStringLiteral("The file's \"%1\" section, which this pump's settings "
                                        "need, is missing or not an object")
                             .arg(name));
            finish(false, PumpSettingsResultType::InvalidFileFormat);
            return;
        }
        PumpSettingsResultType result = PumpSettingsResultType::InvalidFileFormat;
        if (!section->parse(object.toObject(), result)) {
            finish(false, result);
            return;
        }
    }
    // The pump's present values: for the preview, and for what a Set must keep that the file
    // does not hold.
    mPhase = Phase::Reading;
    connectSections();
    startTimeout();
    for (auto& [name, section] : mSections) {
        section->request();
    }
}

void PumpSettingsLoad::onValueAnswered() {
    if (!mTimeout.isActive() || !sectionsComplete()) {
        return;
    }
    if (mPhase == Phase::Reading && !confirmRead()) {
        return;
    }
    if (mPhase == Phase::Reading && mMode == Mode::Preview) {
        mComparisons = compareAll();
        finish(true, PumpSettingsResultType::Success);
    } else if (mPhase == Phase::Reading) {
        mPhase = Phase::Applying;
        forgetReads(); // the read-backs are confirmed on their own
        startTimeout();
        for (auto& [name, section] : mSections) {
            section->apply();
        }
    } else if (mPhase == Phase::Applying) {
        onApplied();
    }
}

void PumpSettingsLoad::onApplied() {
    mTimeout.stop();
    const QList<SettingComparison> comparisons = compareAll();
    const bool differs = std::any_of(comparisons.begin(), comparisons.end(),
                                     [](const SettingComparison& c) { return c.changed; });
    if (differs) {
        // The pump is asked again until two reads agree before a setting is reported as not
        // taken: a late or repeated answer can stand in for a read-back.
        if (!hasEarlierRead()) {
            BWL_LOG_INFO("onApplied", QStringLiteral("A read-back differs from the file; reading "
                                                     "the pump's settings again to confirm"));
        }
        if (!confirmRead()) {
            return;
        }
    }
    for (const SettingComparison& comparison : comparisons) {
        if (comparison.changed) {
            mNotApplied.append(comparison.setting);
            BWL_LOG_WARN("onApplied",
                         QStringLiteral("Not applied: %1: the file asks %2, the pump holds %3")
                             .arg(comparison.setting, comparison.fileValue, comparison.pumpValue));
        }
    }
    if (!mNotApplied.isEmpty()) {
        // The pump runs on with what it holds; a reset would hide that it differs from the file.
        finish(false, PumpSettingsResultType::CouldNotApplyAllSettings);
        return;
    }
    BWL_LOG_INFO("onApplied", QStringLiteral("Every setting of the file applied; resetting the "
                                             "pump in %1 ms")
                                  .arg(kResetDelayMs));
    mPhase = Phase::Idle;
    mTimeout.stop();
    mBusy = false;
    // Still running until the reset is sent, so that no other load starts on a pump about to
    // restart.
    mResetTimer.start(kResetDelayMs);
    emit pumpSettings_loadResult(true, PumpSettingsResultType::SuccessRebooting);
}

void PumpSettingsLoad::resetPump() {
    // PumpReset logs "reset, can't send request" itself when the link does not take it.
    communication::callQueued(mValues.get<communication::PumpReset>(),
                              &communication::PumpReset::reset);
    end();
}

void PumpSettingsLoad::onTimeout() {
    BWL_LOG_WARN("OnTimeout", mMode == Mode::Preview
                                  ? QStringLiteral("OnTimeout: Timed out requesting settings.")
                                  : QStringLiteral("OnTimeout: Timed out applying config."));
    dropSections();
    finish(false, PumpSettingsResultType::PumpResponseTimeout);
}

void PumpSettingsLoad::finish(bool success, PumpSettingsResultType result) {
    mPhase = Phase::Idle;
    end();
    if (mMode == Mode::Preview) {
        emit previewResult(success, result);
    } else {
        emit pumpSettings_loadResult(success, result);
    }
}

QList<SettingComparison> PumpSettingsLoad::compareAll() const {
    QList<SettingComparison> comparisons;
    const auto oemPump = mSections.find(QStringLiteral("oemPump"));
    if (oemPump != mSections.end()) {
        comparisons = oemPump->second->compareWithFile();
    }
    for (const auto& [name, section] : mSections) {
        if (name != QLatin1String("oemPump")) {
            comparisons.append(section->compareWithFile());
        }
    }
    return comparisons;
}

} // namespace pumpSettings
