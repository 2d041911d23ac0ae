#pragma once

#include "LinePace.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

class QSerialPort;
class QSocketNotifier;

namespace simulator {

/// The pump's end of the serial line: the master side of a pseudo-terminal pair, or a serial
/// device. Optionally paces the bytes of both directions at the real line rate: what the pump
/// sends leaves no faster than the line carries it, and what the application writes (which a
/// pseudo-terminal takes at once) reaches the pump no faster either.
class SerialLine : public QObject {
    Q_OBJECT

public:
    /// 115200 baud, 8N1: ten bit times per byte.
    static constexpr double kLineBytesPerSecond = LinePace::kLineBytesPerSecond;

    explicit SerialLine(bool paceAtLineRate, QObject* parent = nullptr);
    ~SerialLine() override;

    /// Creates a pseudo-terminal pair; on success `slavePath` is the path the application opens.
    bool openPty(QString& slavePath, QString& error);
    bool openDevice(const QString& path, QString& error);
    bool isOpen() const { return mOpen; }

    /// Queues bytes for the line (dropped when the line is closed).
    void write(const QByteArray& bytes);
    /// Closes the line as a pulled cable would.
    void close();

    qint64 bytesWritten() const { return mBytesWritten; }

signals:
    void bytesReceived(const QByteArray& bytes);
    /// The device went away (a USB adapter pulled out).
    void lost(const QString& reason);

private:
    void readPty();
    void receive(const QByteArray& bytes);
    void deliverReceived();
    void drain();
    qint64 writeNow(const char* data, qint64 length);

    bool mPaced;
    bool mOpen = false;
    int mMasterFd = -1;
    int mSlaveFd = -1;
    QSocketNotifier* mReadNotifier = nullptr;
    QSocketNotifier* mWriteNotifier = nullptr;
    QSerialPort* mPort = nullptr;
    QByteArray mPending;
    QTimer mPaceTimer;
    LinePace mOutPace;
    QByteArray mReceived; // paced: arrived, not yet through the line
    QTimer mReceivePaceTimer;
    LinePace mInPace;
    qint64 mBytesWritten = 0;
};

} // namespace simulator
