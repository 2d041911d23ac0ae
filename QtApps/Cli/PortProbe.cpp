#include "PortProbe.h"

#include "QtApps/Common/Core/Communication/ProtocolCommsInterface.h"
#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpSession.h"

namespace cli {

using communication::objects::ProtocolObject;

PortProbe::PortProbe(communication::ProtocolCommsInterface& comms, QStringList ports,
                     QObject* parent)
    : QObject(parent)
    , mComms(comms)
    , mProtocolObject(comms.protocolObjects().get<ProtocolObject>())
    , mPorts(std::move(ports))
    , mWait(this) {
    mWait.setSingleShot(true);
    connect(&mWait, &QTimer::timeout, this, [this] { endProbe(QString()); });
    connect(&mProtocolObject, &ProtocolObject::getVersionResponse, this, &PortProbe::onVersion);
    connect(&mComms, &communication::ProtocolCommsInterface::portOpenFailed, this,
            [this](const QString& /*port*/, const QString& reason) { mOpenFailure = reason; });
}

void PortProbe::start() {
    probeNext();
}

void PortProbe::probeNext() {
    if (mNext >= mPorts.size()) {
        emit finished();
        return;
    }
    mCurrent = mPorts.at(mNext++);
    mOpenFailure.clear();
    // Requests of an earlier port that never answered are no business of this one.
    mComms.clearRequestLog();
    if (!mComms.openPort(mCurrent)) {
        emit probed(mCurrent, QString(), mOpenFailure);
        probeNext();
        return;
    }
    if (!mProtocolObject.RequestVersion()) {
        BWL_LOG_INFO("probeNext",
                     QStringLiteral("Cannot send the version request on %1").arg(mCurrent));
        endProbe(QString());
        return;
    }
    mWaiting = true;
    mWait.start(communication::PumpSession::kProbeWaitMs);
}

void PortProbe::onVersion(halyard::SemanticVersion version) {
    if (mWaiting) {
        endProbe(
            QStringLiteral("%1.%2.%3").arg(version.major).arg(version.minor).arg(version.patch));
    }
}

void PortProbe::endProbe(const QString& version) {
    mWaiting = false;
    mWait.stop();
    mComms.closePort();
    BWL_LOG_INFO("endProbe", version.isEmpty()
                                 ? QStringLiteral("%1: no answer").arg(mCurrent)
                                 : QStringLiteral("%1: protocol %2").arg(mCurrent, version));
    emit probed(mCurrent, version, QString());
    probeNext();
}

} // namespace cli
