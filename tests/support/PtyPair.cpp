#include "PtyPair.h"

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace testsupport {

PtyPair::PtyPair(QObject* parent) : QObject(parent) {
    std::array<char, 256> name{};
    termios raw{};
    cfmakeraw(&raw);
    if (openpty(&mMaster, &mSlave, name.data(), &raw, nullptr) != 0) {
        mMaster = -1;
        return;
    }
    mSlaveName = QString::fromLocal8Bit(name.data());
    // The slave stays open here too, so that the line does not hang up between the
    // application's closing and reopening of its port.
    fcntl(mMaster, F_SETFL, fcntl(mMaster, F_GETFL) | O_NONBLOCK);
    mNotifier = std::make_unique<QSocketNotifier>(mMaster, QSocketNotifier::Read);
    connect(mNotifier.get(), &QSocketNotifier::activated, this, &PtyPair::readMaster);
}

PtyPair::~PtyPair() {
    closeMaster();
    if (mSlave >= 0) {
        ::close(mSlave);
    }
}

bool PtyPair::write(const QByteArray& bytes) {
    if (mMaster < 0) {
        return false;
    }
    const auto length = static_cast<std::size_t>(bytes.size());
    return ::write(mMaster, bytes.constData(), length) == static_cast<ssize_t>(length);
}

QByteArray PtyPair::takeReceived() {
    QByteArray bytes;
    bytes.swap(mReceived);
    return bytes;
}

void PtyPair::closeMaster() {
    mNotifier.reset();
    if (mMaster >= 0) {
        ::close(mMaster);
        mMaster = -1;
    }
}

void PtyPair::readMaster() {
    std::array<char, 4096> buffer{};
    bool any = false;
    for (;;) {
        const ssize_t count = ::read(mMaster, buffer.data(), buffer.size());
        if (count <= 0) {
            break;
        }
        mReceived.append(buffer.data(), static_cast<qsizetype>(count));
        any = true;
    }
    if (any) {
        emit bytesArrived();
    }
}

} // namespace testsupport
