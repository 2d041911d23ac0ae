#include "SessionRecorder.h"

#include "QtApps/Common/Logger/Log.h"

#include "Common/Protocol/MessageTypes.h"

#include <QCoreApplication>
#include <QDateTime>

namespace communication {

namespace msg = halyard::protocol::message;

namespace {

constexpr std::size_t kRequestHeader = 6;
constexpr qint64 kMebibyte = qint64{1024} * 1024;
constexpr std::size_t kResponseHeader = 3;

QByteArray hex(const std::uint8_t* bytes, std::size_t length) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(bytes),
                                   static_cast<qsizetype>(length))
        .toHex(' ');
}

// "0/0 attr=1 Get": what a request addresses.
QByteArray addressText(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                       std::uint8_t operation) {
    return QByteArray::number(object) + '/' + QByteArray::number(instance) +
           " attr=" + QByteArray::number(attribute) + ' ' +
           msg::OperationName(msg::ToOperation(operation));
}

} // namespace

SessionRecorder::SessionRecorder() = default;

SessionRecorder::~SessionRecorder() {
    stop();
}

bool SessionRecorder::start(const QString& path, const QString& openPort) {
    stop();
    mLastError.clear();
    mEvents = 0;
    mRequestKnown.fill(false);
    mFile.setFileName(path);
    if (!mFile.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        mLastError = QCoreApplication::translate("SessionRecorder", "Cannot write %1: %2")
                         .arg(path, mFile.errorString());
        BWL_LOG_WARN("start", mLastError);
        return false;
    }
    mClock.start();
    // The local time with its offset from UTC, so support can line it up with other logs.
    const QDateTime now = QDateTime::currentDateTime();
    const QByteArray header =
        "# Brackwater Link session recording 1\n# application " +
        QCoreApplication::applicationName().toUtf8() + ' ' +
        QCoreApplication::applicationVersion().toUtf8() + "\n# started " +
        now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs).toUtf8() + '\n';
    if (mFile.write(header) != header.size()) {
        fail(mFile.errorString());
        return false;
    }
    BWL_LOG_INFO("start", QStringLiteral("Recording the session to %1").arg(path));
    if (!openPort.isEmpty()) {
        portOpened(openPort);
    }
    return true;
}

void SessionRecorder::stop() {
    if (!mFile.isOpen()) {
        return;
    }
    mFile.close();
    BWL_LOG_INFO("stop", QStringLiteral("Recorded %1 events to %2").arg(mEvents).arg(path()));
}

void SessionRecorder::flush() {
    if (mFile.isOpen() && !mFile.flush()) {
        fail(mFile.errorString());
    }
}

void SessionRecorder::portOpened(const QString& portName) {
    writeEvent("open " + portName.toUtf8());
}

void SessionRecorder::portClosed() {
    writeEvent(QByteArrayLiteral("close"));
}

void SessionRecorder::FrameSent(const std::uint8_t* message, std::size_t length) {
    if (length == 0) {
        return;
    }
    rememberRequest(message, length);
    QByteArray event = "tx " + hex(message, length);
    if (length >= 2) {
        const auto type = static_cast<msg::Type>(message[1]);
        event += " | id=" + QByteArray::number(message[0]) + ' ' + msg::TypeName(type);
        if (type == msg::Type::Request && length >= kRequestHeader) {
            event += ' ' + addressText(message[2], message[3], message[4], message[5]);
        } else if (type != msg::Type::Request && length >= kResponseHeader) {
            event += ' ' + QByteArray(msg::StatusName(msg::ToStatus(message[2])));
        }
    }
    writeEvent(event);
}

void SessionRecorder::FrameReceived(const std::uint8_t* message, std::int32_t length) {
    if (length < 0) {
        writeEvent(QByteArrayLiteral("rx-malformed"));
        return;
    }
    if (length == 0) {
        return;
    }
    const auto size = static_cast<std::size_t>(length);
    QByteArray event = "rx " + hex(message, size);
    if (size >= 2) {
        const auto type = static_cast<msg::Type>(message[1]);
        event += " | id=" + QByteArray::number(message[0]) + ' ' + msg::TypeName(type);
        if (type == msg::Type::Request && size >= kRequestHeader) {
            event += ' ' + addressText(message[2], message[3], message[4], message[5]);
        } else if ((type == msg::Type::AckStatus || type == msg::Type::NakStatus) &&
                   size >= kResponseHeader) {
            event += ' ' + QByteArray(msg::StatusName(msg::ToStatus(message[2])));
            if (mRequestKnown[message[0]]) {
                const RequestKey& key = mRequests[message[0]];
                event += " for " + addressText(key[0], key[1], key[2], key[3]);
            }
        }
    }
    writeEvent(event);
}

void SessionRecorder::RequestTimedOut(std::uint8_t id) {
    QByteArray event = "timeout " + QByteArray::number(id);
    if (mRequestKnown[id]) {
        const RequestKey& key = mRequests[id];
        event += " | " + addressText(key[0], key[1], key[2], key[3]);
    }
    writeEvent(event);
}

void SessionRecorder::rememberRequest(const std::uint8_t* message, std::size_t length) {
    if (length < kRequestHeader || message[1] != static_cast<std::uint8_t>(msg::Type::Request)) {
        return;
    }
    mRequests[message[0]] = {message[2], message[3], message[4], message[5]};
    mRequestKnown[message[0]] = true;
}

void SessionRecorder::writeEvent(const QByteArray& event) {
    if (!mFile.isOpen()) {
        return;
    }
    const QByteArray line = QByteArray::number(mClock.elapsed()) + ' ' + event + '\n';
    if (mFile.pos() + line.size() > kMaxBytes) {
        fail(QCoreApplication::translate("SessionRecorder", "the file reached %1 MiB")
                 .arg(kMaxBytes / kMebibyte));
        return;
    }
    if (mFile.write(line) != line.size()) {
        fail(mFile.errorString());
        return;
    }
    ++mEvents;
}

void SessionRecorder::fail(const QString& reason) {
    mLastError =
        QCoreApplication::translate("SessionRecorder", "Recording stopped: %1").arg(reason);
    BWL_LOG_WARN("fail", QStringLiteral("%1 (%2)").arg(mLastError, path()));
    mFile.close();
}

} // namespace communication
