#pragma once

#include "tests/values/ValuesLink.h"

#include <QCoreApplication>
#include <QEvent>

namespace testsupport {

/// Delivers what the values posted to the models: the models connect to the values through
/// queued connections, and here both live on the test's thread.
inline void deliverQueued() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

} // namespace testsupport
