#pragma once

#include <QMetaObject>
#include <QObject>

#include <type_traits>

namespace communication {

/// Calls `slot` of a pump value with `args` on the value's own thread, queued. The controllers
/// and models live on the user-interface thread and the values where the proxies run, so they
/// never call a value directly (not even while both still share a thread, before the comms
/// object has moved, or in tests): the arguments are copied into the call, and nothing waits.
/// Returns whether the call could be queued (false only when the value's thread has no event
/// loop to run it).
template <typename Value, typename Owner, typename... Params, typename... Args>
bool callQueued(Value& value, void (Owner::*slot)(Params...), Args... args) {
    static_assert(std::is_base_of_v<Owner, Value>, "the slot belongs to another class");
    static_assert(std::is_base_of_v<QObject, Value>);
    return QMetaObject::invokeMethod(
        &value, [&value, slot, args...] { (value.*slot)(args...); }, Qt::QueuedConnection);
}

} // namespace communication
