#include "QueuedCall.h"

namespace models {

namespace {

#ifdef __clang_analyzer__
// Qt owns the slot object that invokeMethod makes for the call and deletes it once the call has
// run. The static analyzer loses track of it inside Qt's system headers and reports a leak that
// is not there (clang-analyzer-cplusplus.NewDeleteLeaks), so it analyses this stand-in instead.
bool invokeQueued(QObject& /*context*/, std::function<void()>&& /*call*/) {
    return true;
}
#else
bool invokeQueued(QObject& context, std::function<void()>&& call) {
    return QMetaObject::invokeMethod(&context, std::move(call), Qt::QueuedConnection);
}
#endif

} // namespace

bool QueueCall(QObject& context, std::function<void()> call) {
    return invokeQueued(context, std::move(call));
}

} // namespace models
