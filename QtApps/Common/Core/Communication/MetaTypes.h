#pragma once

#include "LinkStatsSnapshot.h"

#include "Common/Protocol/MessageTypes.h"
#include "Common/Protocol/SemanticVersion.h"

#include <QMetaType>

// Protocol-library types that travel in signals between the comms thread and the user-interface
// thread. Declaring them here, once, keeps every queued connection able to copy them.
Q_DECLARE_METATYPE(halyard::SemanticVersion)
Q_DECLARE_METATYPE(halyard::protocol::message::Status)

namespace communication {

/// Registers the types above, and the link's figures, by name as well; called once at start-up
/// (and by tests) before any cross-thread connection carries them.
inline void RegisterMetaTypes() {
    qRegisterMetaType<halyard::SemanticVersion>("halyard::SemanticVersion");
    qRegisterMetaType<halyard::protocol::message::Status>("halyard::protocol::message::Status");
    qRegisterMetaType<communication::LinkStatsSnapshot>("communication::LinkStatsSnapshot");
}

} // namespace communication
