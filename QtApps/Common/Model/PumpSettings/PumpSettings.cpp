#include "PumpSettings.h"

#include "PumpSettingsAnalogObject.h"
#include "PumpSettingsNetworkObject.h"
#include "PumpSettingsOemPumpObject.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace pumpSettings {

namespace {

// The dotted paths ("oemPump.primeSpeed") at which two reads differ, for the log.
QStringList differingFields(const QJsonObject& a, const QJsonObject& b,
                            const QString& prefix = {}) {
    QStringList keys = a.keys() + b.keys();
    keys.removeDuplicates();
    QStringList paths;
    for (const QString& key : keys) {
        const QString path = prefix.isEmpty() ? key : prefix + QLatin1Char('.') + key;
        const QJsonValue left = a.value(key);
        const QJsonValue right = b.value(key);
        if (left.isObject() && right.isObject()) {
            paths += differingFields(left.toObject(), right.toObject(), path);
        } else if (left != right) {
            paths.append(path);
        }
    }
    return paths;
}

} // namespace

QString PumpSettings::resultText(PumpSettingsResultType result) {
    // Built on first use, when the translations of the user's language are installed.
    static const QMap<PumpSettingsResultType, QString> texts{
        {PumpSettingsResultType::Success, tr("Success")},
        {PumpSettingsResultType::SuccessRebooting, tr("Success. Rebooting pump...")},
        {PumpSettingsResultType::CouldNotOpenFile, tr("Could not open file")},
        {PumpSettingsResultType::PumpResponseTimeout, tr("Pump response timeout")},
        {PumpSettingsResultType::CouldNotApplyAllSettings, tr("Could not apply all settings")},
        {PumpSettingsResultType::InvalidFileFormat, tr("Invalid file format")},
        {PumpSettingsResultType::IncompatiblePumpSettings, tr("Incompatible pump settings")},
    };
    return texts.value(result);
}

PumpSettings::PumpSettings(communication::PumpValues& values, QObject* parent)
    : QObject(parent)
    , mValues(values) {
    mTimeout.setSingleShot(true);
    // A coarse timer may fire up to 5 % early; the pump is given its full time.
    mTimeout.setTimerType(Qt::PreciseTimer);
    connect(&mTimeout, &QTimer::timeout, this, &PumpSettings::onTimeout);
    connect(&values.get<communication::PumpDetailsGetAll>(),
            &communication::PumpDetailsGetAll::getAllResponse, this, &PumpSettings::onPumpDetails,
            Qt::QueuedConnection);
}

bool PumpSettings::begin(const char* what) {
    if (mRunning) {
        BWL_LOG_WARN("begin", QStringLiteral("%1 refused: the last one has not finished")
                                  .arg(QString::fromLatin1(what)));
        return false;
    }
    mRunning = true;
    forgetReads();
    emit runningChanged();
    return true;
}

void PumpSettings::end() {
    mTimeout.stop();
    mBusy = false;
    if (mFile.isOpen()) {
        mFile.close();
    }
    mRunning = false;
    emit runningChanged();
}

bool PumpSettings::openFile(const QUrl& filePath, QIODevice::OpenMode mode) {
    const QString path = filePath.toLocalFile();
    mFile.setFileName(path);
    // A folder may open on some systems, yet holds no settings.
    if (path.isEmpty() || QFileInfo(path).isDir() || !mFile.open(mode)) {
        BWL_LOG_WARN("OpenFile", QStringLiteral("Could not open selected file"));
        BWL_LOG_DEBUG("OpenFile", QStringLiteral("\"%1\": %2").arg(path, mFile.errorString()));
        return false;
    }
    return true;
}

void PumpSettings::requestDetails() {
    mBusy = true;
    communication::callQueued(mValues.get<communication::PumpDetailsGetAll>(),
                              &communication::PumpDetailsGetAll::getAll);
    startTimeout();
}

void PumpSettings::onPumpDetails(const communication::objects::PumpDetails& details) {
    if (!mBusy) {
        return;
    }
    mBusy = false;
    mDetails = details;
    onDetails();
}

void PumpSettings::buildSections() {
    for (auto& [name, section] : mSections) {
        delete section;
    }
    mSections.clear();
    auto* oemPump = new oemPump::PumpSettingsOemPumpObject(mValues, mDetails, this);
    mSections.emplace(oemPump->name(), oemPump);
    PumpSettingsSection* inputs = nullptr;
    if (mDetails.isNetworkPump != 0) {
        inputs = new network::PumpSettingsNetworkObject(mValues, this);
    } else {
        inputs = new analog::PumpSettingsAnalogObject(mValues, this);
    }
    mSections.emplace(inputs->name(), inputs);
}

void PumpSettings::connectSections() {
    for (auto& [name, section] : mSections) {
        connect(section, &PumpSettingsObjectInterface::valueAnswered, this,
                &PumpSettings::onValueAnswered, Qt::QueuedConnection);
    }
}

void PumpSettings::dropSections() {
    for (auto& [name, section] : mSections) {
        disconnect(section, nullptr, this, nullptr);
    }
}

bool PumpSettings::confirmRead() {
    QJsonObject read;
    for (const auto& [name, section] : mSections) {
        read.insert(name, section->toJson());
    }
    if (mReads.contains(read)) {
        return true;
    }
    if (mReads.size() + 1 >= kMaxReads) {
        BWL_LOG_WARN("confirmRead", QStringLiteral("No two reads of the pump's settings agree "
                                                   "after %1 reads")
                                        .arg(kMaxReads));
        onTimeout();
        return false;
    }
    if (!mReads.isEmpty()) {
        BWL_LOG_INFO("confirmRead",
                     QStringLiteral("Two reads of the pump's settings differ (%1); reading again")
                         .arg(differingFields(mReads.last(), read).join(QStringLiteral(", "))));
    }
    mReads.append(read);
    startTimeout();
    for (auto& [name, section] : mSections) {
        section->request();
    }
    return false;
}

bool PumpSettings::sectionsComplete() const {
    return std::all_of(mSections.begin(), mSections.end(),
                       [](const auto& entry) { return entry.second->complete(); });
}

} // namespace pumpSettings
