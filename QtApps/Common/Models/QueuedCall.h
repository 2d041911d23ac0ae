#pragma once

#include <QObject>

#include <functional>

namespace models {

/// Queues `call` to run on the thread of `context`: how the models, on the user-interface
/// thread, reach the pump values on the comms thread. Never a direct call, even while both live
/// on one thread (before the comms object has moved, and in tests). Returns whether the call
/// could be queued (false only when `context` has no event dispatcher to run it).
bool QueueCall(QObject& context, std::function<void()> call);

} // namespace models
