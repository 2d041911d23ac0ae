#pragma once

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
