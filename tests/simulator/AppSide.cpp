#include "AppSide.h"

#include "Common/Protocol/ProtocolBaseObject.h"
#include "Common/Protocol/ReceiveStream.h"

#include <QSerialPort>
#include <QSocketNotifier>

#include <unistd.h>

namespace simtest {

class AppSide::Clock final : public halyard::device::SystemInterface {
public:
    explicit Clock(const QElapsedTimer& clock) : mClock(clock) {}
    std::uint64_t ElapsedMilliseconds() const override {
        return static_cast<std::uint64_t>(mClock.elapsed());
    }
    void Delay(std::uint32_t) override {}
    void DebugPrint(const char* text) override { qWarning("%s", text); }

private:
    const QElapsedTimer& mClock;
};

/// Stands in for the application's proxy of one object instance.
class AppSide::Recorder final : public halyard::protocol::ProtocolBaseObject,
                                public halyard::protocol::ProtocolMessageHandler {
public:
    Recorder(AppSide& owner, halyard::protocol::ProtocolInterface& protocol, std::uint8_t object,
             std::uint8_t instance)
        : ProtocolBaseObject(protocol)
        , ProtocolMessageHandler(object, instance)
        , mOwner(owner) {}

    bool Handle(const ProtocolMessage& message) override {
        if (message.type == Type::Request) {
            mOwner.updates.append({message, mOwner.now()});
            if (mOwner.acknowledgeUpdates) {
                ReplySuccess(message);
            }
            return true;
        }
        mOwner.answers.append({message, mOwner.now()});
        emit mOwner.answered();
        return true;
    }

private:
    AppSide& mOwner;
};

AppSide::AppSide() : mTransport(mRing.data(), mRing.size(), mScratch.data(), mScratch.size()) {
    mClock.start();
    mSystem = std::make_unique<Clock>(mClock);
    mLog = std::make_unique<halyard::protocol::ProtocolRequestLog>(100, *mSystem);
    mProtocol =
        std::make_unique<halyard::protocol::Protocol>(mTransmit.data(), mTransmit.size(), *mLog);
    mProtocol->SetPayloadOutHandler(this);
    const std::uint8_t delimiter = 0;
    mTransport.DataIn(&delimiter, 1);
    const std::pair<std::uint8_t, std::uint8_t> objects[] = {
        {0, 0}, {1, 1}, {1, 2}, {1, 3}, {2, 1}, {2, 2}, {3, 1},    {3, 2},
        {4, 1}, {4, 3}, {4, 4}, {5, 1}, {6, 1}, {7, 1}, {0x42, 0}, {1, 7}};
    for (const auto& [object, instance] : objects) {
        mRecorders.push_back(std::make_unique<Recorder>(*this, *mProtocol, object, instance));
        mProtocol->RegisterMessageHandler(mRecorders.back().get());
    }
    mTimeoutScan.setInterval(100);
    connect(&mTimeoutScan, &QTimer::timeout, this, [this]() { mLog->CheckTimeouts(*mProtocol); });
    mTimeoutScan.start();
}

AppSide::~AppSide() {
    close();
}

bool AppSide::open(const QString& path) {
    mPort = new QSerialPort(path, this);
    mPort->setBaudRate(115200);
    if (!mPort->open(QIODevice::ReadWrite)) {
        return false;
    }
    connect(mPort, &QSerialPort::readyRead, this, [this]() { onBytes(mPort->readAll()); });
    return true;
}

void AppSide::adopt(int fd) {
    mFd = fd;
    mNotifier = new QSocketNotifier(fd, QSocketNotifier::Read, this);
    connect(mNotifier, &QSocketNotifier::activated, this, [this]() {
        char buffer[4096];
        const ssize_t count = ::read(mFd, buffer, sizeof buffer);
        if (count > 0) {
            onBytes(QByteArray(buffer, static_cast<qsizetype>(count)));
        }
    });
}

void AppSide::close() {
    if (mPort != nullptr) {
        mPort->close();
    }
    delete mNotifier;
    mNotifier = nullptr;
}

bool AppSide::PayloadOut(const std::uint8_t* data, std::size_t length) {
    QByteArray frame(static_cast<qsizetype>(length + 8), '\0');
    const std::int32_t size =
        mTransport.Encode(reinterpret_cast<std::uint8_t*>(frame.data()),
                          static_cast<std::size_t>(frame.size()), data, length);
    if (size <= 0) {
        return false;
    }
    frame.resize(size);
    if (mPort != nullptr) {
        return mPort->write(frame) == frame.size();
    }
    return ::write(mFd, frame.constData(), static_cast<size_t>(frame.size())) == frame.size();
}

void AppSide::onBytes(const QByteArray& bytes) {
    bytesReceived += bytes.size();
    halyard::protocol::ReceiveStream(
        mTransport, reinterpret_cast<const std::uint8_t*>(bytes.constData()),
        static_cast<std::size_t>(bytes.size()), mDecoded.data(), mDecoded.size(),
        [this](std::int32_t length) {
            if (length < 0) {
                return;
            }
            rawMessages.append(QByteArray(reinterpret_cast<const char*>(mDecoded.data()), length));
            rawTimes.append(now());
            mProtocol->ReceiveBytes(mDecoded.data(), length);
        });
}

bool AppSide::request(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                      Operation operation, const QByteArray& payload) {
    ProtocolMessage message;
    message.type = Type::Request;
    message.object = object;
    message.instance = instance;
    message.attribute = attribute;
    message.SetOperation(operation);
    auto writer = message.Writer();
    writer.WriteBytes(reinterpret_cast<const std::uint8_t*>(payload.constData()),
                      static_cast<std::size_t>(payload.size()));
    writer.Close();
    return mProtocol->Send(message);
}

bool AppSide::subscribe(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                        std::uint16_t periodMs, bool onChange) {
    QByteArray payload;
    payload.append(static_cast<char>(periodMs & 0xFF));
    payload.append(static_cast<char>(periodMs >> 8));
    payload.append(static_cast<char>(onChange ? 1 : 0));
    return request(object, instance, attribute, Operation::Sub, payload);
}

QList<AppSide::Received> AppSide::updatesOf(std::uint8_t object, std::uint8_t instance,
                                            std::uint8_t attribute) const {
    QList<Received> found;
    for (const Received& update : updates) {
        if (update.message.object == object && update.message.instance == instance &&
            update.message.attribute == attribute) {
            found.append(update);
        }
    }
    return found;
}

QString hex(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' '));
}

} // namespace simtest
