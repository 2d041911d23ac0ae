#include "SerialLine.h"

#include <QSerialPort>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace simulator {

namespace {
// Beyond this the application is not reading: drop rather than grow without bound.
constexpr qsizetype kMaxPendingBytes = 1 << 20;
} // namespace

SerialLine::SerialLine(bool paceAtLineRate, QObject* parent)
    : QObject(parent)
    , mPaced(paceAtLineRate) {
    mPaceTimer.setInterval(1);
    mPaceTimer.setTimerType(Qt::PreciseTimer);
    connect(&mPaceTimer, &QTimer::timeout, this, &SerialLine::drain);
    mReceivePaceTimer.setInterval(1);
    mReceivePaceTimer.setTimerType(Qt::PreciseTimer);
    connect(&mReceivePaceTimer, &QTimer::timeout, this, &SerialLine::deliverReceived);
}

SerialLine::~SerialLine() {
    close();
}

bool SerialLine::openPty(QString& slavePath, QString& error) {
    char name[256] = {};
    if (::openpty(&mMasterFd, &mSlaveFd, name, nullptr, nullptr) != 0) {
        error =
            QStringLiteral("openpty failed: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    // Raw mode, so that the line carries bytes untouched before the application sets it up.
    // The simulator keeps its own slave descriptor open: the master then keeps working while
    // no application has the port open, as a pump keeps running with no computer attached.
    termios attributes{};
    if (::tcgetattr(mSlaveFd, &attributes) == 0) {
        ::cfmakeraw(&attributes);
        ::tcsetattr(mSlaveFd, TCSANOW, &attributes);
    }
    ::fcntl(mMasterFd, F_SETFL, ::fcntl(mMasterFd, F_GETFL) | O_NONBLOCK);
    ::fcntl(mMasterFd, F_SETFD, FD_CLOEXEC);
    ::fcntl(mSlaveFd, F_SETFD, FD_CLOEXEC);

    mReadNotifier = new QSocketNotifier(mMasterFd, QSocketNotifier::Read, this);
    connect(mReadNotifier, &QSocketNotifier::activated, this, &SerialLine::readPty);
    mWriteNotifier = new QSocketNotifier(mMasterFd, QSocketNotifier::Write, this);
    mWriteNotifier->setEnabled(false);
    connect(mWriteNotifier, &QSocketNotifier::activated, this, &SerialLine::drain);
    slavePath = QString::fromLocal8Bit(name);
    mOpen = true;
    return true;
}

bool SerialLine::openDevice(const QString& path, QString& error) {
    mPort = new QSerialPort(path, this);
    mPort->setBaudRate(QSerialPort::Baud115200);
    mPort->setDataBits(QSerialPort::Data8);
    mPort->setParity(QSerialPort::NoParity);
    mPort->setStopBits(QSerialPort::OneStop);
    mPort->setFlowControl(QSerialPort::NoFlowControl);
    if (!mPort->open(QIODevice::ReadWrite)) {
        error = QStringLiteral("Cannot open %1: %2").arg(path, mPort->errorString());
        delete mPort;
        mPort = nullptr;
        return false;
    }
    connect(mPort, &QSerialPort::readyRead, this, [this]() { receive(mPort->readAll()); });
    connect(mPort, &QSerialPort::bytesWritten, this, &SerialLine::drain);
    connect(mPort, &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError portError) {
                if (portError == QSerialPort::ResourceError) {
                    emit lost(mPort->errorString());
                }
            });
    mOpen = true;
    return true;
}

void SerialLine::readPty() {
    char buffer[4096];
    for (;;) {
        const ssize_t count = ::read(mMasterFd, buffer, sizeof buffer);
        if (count > 0) {
            receive(QByteArray(buffer, static_cast<qsizetype>(count)));
            continue;
        }
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
            // Not expected while the simulator holds the slave open; never spin on it.
            qWarning("Line read failed: %s", std::strerror(errno));
            mReadNotifier->setEnabled(false);
        }
        return;
    }
}

void SerialLine::receive(const QByteArray& bytes) {
    if (!mPaced) {
        emit bytesReceived(bytes);
        return;
    }
    if (mReceived.isEmpty()) {
        mInPace.startAfterIdle();
    }
    mReceived.append(bytes);
    deliverReceived();
}

void SerialLine::deliverReceived() {
    const qint64 count = mInPace.take(mReceived.size());
    if (count > 0) {
        const QByteArray arrived = mReceived.left(count);
        mReceived.remove(0, count);
        emit bytesReceived(arrived);
    }
    if (mReceived.isEmpty()) {
        mReceivePaceTimer.stop();
    } else if (!mReceivePaceTimer.isActive()) {
        mReceivePaceTimer.start();
    }
}

void SerialLine::write(const QByteArray& bytes) {
    if (!mOpen) {
        return;
    }
    if (mPending.size() + bytes.size() > kMaxPendingBytes) {
        qWarning("Line: application not reading, %lld bytes dropped",
                 static_cast<long long>(bytes.size()));
        return;
    }
    if (mPaced && mPending.isEmpty()) {
        mOutPace.startAfterIdle();
    }
    mPending.append(bytes);
    drain();
}

qint64 SerialLine::writeNow(const char* data, qint64 length) {
    if (mPort != nullptr) {
        return mPort->write(data, length);
    }
    const ssize_t written = ::write(mMasterFd, data, static_cast<size_t>(length));
    return written < 0 ? 0 : written;
}

void SerialLine::drain() {
    if (!mOpen || mPending.isEmpty()) {
        mPaceTimer.stop();
        if (mWriteNotifier != nullptr) {
            mWriteNotifier->setEnabled(false);
        }
        return;
    }
    const qint64 budget = mPaced ? mOutPace.take(mPending.size()) : mPending.size();
    const qint64 written = budget > 0 ? writeNow(mPending.constData(), budget) : 0;
    if (written > 0) {
        mPending.remove(0, written);
        mBytesWritten += written;
    }
    if (mPaced && written < budget) {
        mOutPace.giveBack(budget - qMax<qint64>(written, 0));
    }
    if (mPending.isEmpty()) {
        mPaceTimer.stop();
        if (mWriteNotifier != nullptr) {
            mWriteNotifier->setEnabled(false);
        }
    } else if (mPaced) {
        if (!mPaceTimer.isActive()) {
            mPaceTimer.start();
        }
    } else if (mWriteNotifier != nullptr) {
        mWriteNotifier->setEnabled(true); // the pty is full: wait until it takes more
    }
}

void SerialLine::close() {
    if (!mOpen) {
        return;
    }
    mOpen = false;
    mPaceTimer.stop();
    mReceivePaceTimer.stop();
    mReceived.clear();
    delete mReadNotifier;
    mReadNotifier = nullptr;
    delete mWriteNotifier;
    mWriteNotifier = nullptr;
    if (mPort != nullptr) {
        mPort->close();
    }
    if (mMasterFd >= 0) {
        ::close(mMasterFd);
        mMasterFd = -1;
    }
    if (mSlaveFd >= 0) {
        ::close(mSlaveFd);
        mSlaveFd = -1;
    }
    mPending.clear();
}

} // namespace simulator
