#pragma once

#include "QtApps/Common/Model/PumpValues/ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// One-shot command: resets the network module's file system.
class PumpNetworkFileSystemReset final : public ProxyValue<objects::NetworkObject> {
    Q_OBJECT

public:
    explicit PumpNetworkFileSystemReset(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::NetworkObject::FileSystem, "FileSystem", {0, false}) {
        connect(&proxy(), &objects::NetworkObject::ackReset, this, [this](uint8_t attribute) {
            if (attribute == this->attribute()) {
                onResetFileSystemSuccess();
            }
        });
    }

signals:
    void fileSystemResetResult(bool success);

public slots:
    void resetFileSystem() {
        send("reset, unable to send request", &objects::NetworkObject::ResetFileSystem);
    }
    void onResetFileSystemSuccess() { emit fileSystemResetResult(true); }
};

} // namespace communication
