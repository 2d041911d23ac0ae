#include "ApplicationCore.h"

#include "QtApps/Common/Controllers/ControllerRegistry.h"
#include "QtApps/Common/Controllers/LinkStatsController.h"
#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Logger/LoggerInstantiation.h"
#include "QtApps/Common/Model/FirmwareUpdate/MiniZipReader.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/ModelRegistry.h"

#include <QCoreApplication>

namespace common {

namespace {
// Long enough for the comms thread to write its last frames, short enough never to hang a close.
constexpr unsigned long kCommsThreadExitWaitMs = 2000;
} // namespace

ApplicationCore::ApplicationCore(QCoreApplication& application, const QStringList& portNames,
                                 logger::ConsoleEcho consoleEcho, const QString& recordPath)
    : mComms(new communication::ProtocolComms(*this))
    , mValues(new communication::PumpValues(*mComms))
    , mZipReader(new common::MiniZipReader(mComms))
    , mControllers(new communication::ControllerRegistry(*mComms, *mValues, *mZipReader, portNames,
                                                         application))
    , mModels(new models::ModelRegistry(*mValues, *mControllers, application))
    , mLogger(new logger::LoggerInstantiation(QCoreApplication::applicationName(), consoleEcho)) {
    // Queued to the comms object: it starts once the link runs on its thread.
    mControllers->linkStatsController().startRecordingAtStartUp(recordPath);
    mCommsThread.setObjectName(QStringLiteral("ProtocolCommsThread"));
    mComms->moveToThread(&mCommsThread);
    mCommsThread.start(QThread::InheritPriority);

    // The registries connect their own deleteLater (they are built before this point).
    QObject::connect(&application, &QCoreApplication::aboutToQuit, mComms, &QObject::deleteLater);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, mLogger, &QObject::deleteLater);
    QObject::connect(&application, &QCoreApplication::aboutToQuit, mLogger,
                     &logger::LoggerInstantiation::onApplicationExit);
}

communication::ProtocolComms& ApplicationCore::comms() const {
    return *mComms;
}

communication::PumpValues& ApplicationCore::values() const {
    return *mValues;
}

communication::ControllerRegistry& ApplicationCore::controllers() const {
    return *mControllers;
}

models::ModelRegistry& ApplicationCore::models() const {
    return *mModels;
}

// A finishing thread runs the deferred deletions posted to it, so the comms object is gone (on
// its own thread) once the wait returns.
ApplicationCore::~ApplicationCore() {
    delete mLogger;
    delete mModels;
    delete mControllers;
    if (mComms != nullptr) {
        mComms->deleteLater();
    }
    mCommsThread.quit();
    mCommsThread.wait(kCommsThreadExitWaitMs);
}

} // namespace common
