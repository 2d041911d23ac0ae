#pragma once

#include "tests/values/ValuesLink.h"

#include "QtApps/Common/Core/Communication/ProtocolCommsInterface.h"

#include <QCoreApplication>
#include <QEvent>

namespace testsupport {

/// Delivers what the values posted to the models: the models connect to the values through
/// queued connections, and here both live on the test's thread.
inline void deliverQueued() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

/// The comms object as the pump session sees it, over a values link: no port ever opens.
class HarnessComms final : public communication::ProtocolCommsInterface {
public:
    explicit HarnessComms(ValuesLink& link) : mLink(link) {}
    bool openPort(const QString& /*portName*/) override { return false; }
    void closePort() override {}
    void clearRequestLog() override {}
    communication::ProtocolObjectContainer& protocolObjects() override { return mLink.container(); }

private:
    ValuesLink& mLink;
};

} // namespace testsupport
