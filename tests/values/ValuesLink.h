#pragma once

#include "QtApps/Common/Core/Communication/ProtocolCommsInterface.h"
#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "tests/support/LinkHarness.h"

/// The link below the values without a serial port: the recorded message layer with the
/// application's proxy container on it.
class ValuesLink : public testsupport::LinkHarness {
public:
    communication::ProtocolObjectContainer& container() { return mContainer; }

private:
    communication::ProtocolObjectContainer mContainer{protocol()};
};

/// The comms object as the values and the session see it, on a ValuesLink: only its proxies
/// matter; no port ever opens.
class ValuesComms final : public communication::ProtocolCommsInterface {
public:
    explicit ValuesComms(ValuesLink& link) : mLink(link) {}
    bool openPort(const QString& /*portName*/) override { return false; }
    void closePort() override {}
    void clearRequestLog() override {}
    communication::ProtocolObjectContainer& protocolObjects() override { return mLink.container(); }

private:
    ValuesLink& mLink;
};
