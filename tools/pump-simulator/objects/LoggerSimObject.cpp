#include "LoggerSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

namespace attribute {
constexpr std::uint8_t kLog = 0;
constexpr std::uint8_t kFirstEntry = 1;
constexpr std::uint8_t kNextEntry = 2;
} // namespace attribute

LoggerSimObject::LoggerSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 7, 1)
    , mModel(model) {}

bool LoggerSimObject::writeAttribute(std::uint8_t attr, halyard::protocol::PayloadWriter& writer) {
    if (attr != attribute::kFirstEntry && attr != attribute::kNextEntry) {
        return false;
    }
    EventLog& log = mModel.eventLog();
    const QString entry = attr == attribute::kFirstEntry ? log.first() : log.next();
    // An empty entry (just the NUL) marks the end of the log.
    return writer.WriteString(entry.toLatin1().constData(), EventLog::kMaxEntryLength + 1);
}

void LoggerSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
    } else if (request.operation == msg::Operation::Reset && request.attribute == attribute::kLog) {
        mModel.eventLog().clear();
        reply(request, Status::Success);
    } else if (request.operation == msg::Operation::Reset) {
        reply(request, Status::InvalidAttribute);
    } else {
        reply(request, Status::InvalidOperation);
    }
}

} // namespace simulator
