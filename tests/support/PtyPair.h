#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <memory>

namespace testsupport {

/// A real pseudo-terminal pair in raw mode. The application opens `portName()` (the slave side)
/// like any serial port; the test plays the far end on the master side. Signals `bytesArrived`
/// whenever the application wrote something.
class PtyPair final : public QObject {
    Q_OBJECT

public:
    explicit PtyPair(QObject* parent = nullptr);
    ~PtyPair() override;

    bool isValid() const { return mMaster >= 0; }
    QString portName() const { return mSlaveName; }

    /// Writes all bytes to the application's side in one write call.
    bool write(const QByteArray& bytes);
    /// Everything the application wrote that the test has not taken yet.
    QByteArray takeReceived();
    const QByteArray& received() const { return mReceived; }

    /// Closes the master side: the application's port sees a vanished device.
    void closeMaster();

signals:
    void bytesArrived();

private:
    void readMaster();

    int mMaster = -1;
    int mSlave = -1;
    QString mSlaveName;
    QByteArray mReceived;
    std::unique_ptr<QSocketNotifier> mNotifier;
};

} // namespace testsupport
