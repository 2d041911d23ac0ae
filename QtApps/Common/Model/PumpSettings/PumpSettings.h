#pragma once

#include "PumpSettingsResultType.h"
#include "PumpSettingsSection.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/PumpDetails.h"

#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <map>

namespace communication {
class PumpValues;
}

namespace pumpSettings {

/// The base of the save and load procedures: the file, the sections of the connected pump, the
/// time-out while waiting for the pump, and the request of the pump's details with which every
/// procedure starts (they tell the kind of pump, and so which sections the file has).
///
/// Lives on the user-interface thread; the pump values are reached only by queued calls, their
/// answers come back through queued signals. A procedure runs at a time; each started one ends
/// with exactly one result.
class PumpSettings : public QObject {
    Q_OBJECT

public:
    /// How long the pump may take: for its details, and for each round of its values.
    static constexpr int kPumpTimeoutMs = 5000;

    /// The translated text of a result, as the screens show it; empty for any other number.
    static QString resultText(PumpSettingsResultType result);

    /// From the start until the result (for a load that resets the pump, until the reset is
    /// sent).
    bool running() const { return mRunning; }

signals:
    void runningChanged();

protected:
    PumpSettings(communication::PumpValues& values, QObject* parent);

    /// Marks the procedure running; false, with a log line, when one runs already.
    bool begin(const char* what);
    /// Marks it finished: no time-out, no details awaited.
    void end();

    /// Opens the file of `filePath` (a local file URL) in `mode`; logs and returns false when
    /// that fails.
    bool openFile(const QUrl& filePath, QIODevice::OpenMode mode);
    /// Asks the pump for its details and starts the time-out; onDetails() follows.
    void requestDetails();
    /// The sections for the pump of mDetails: "oemPump", and "network" or "analog".
    void buildSections();
    /// Connects every section's answers to onValueAnswered() (queued).
    void connectSections();
    /// Stops listening to the sections, so late answers change nothing.
    void dropSections();
    bool sectionsComplete() const;
    void startTimeout() { mTimeout.start(kPumpTimeoutMs); }
    /// After every section has answered: true when this read agrees with any earlier one.
    /// Otherwise keeps it and asks every section again (onValueAnswered() follows), or, after
    /// kMaxReads reads, gives up through onTimeout(). One read alone is not trusted: an answer
    /// that came late or twice can be taken as the answer to another request that now holds its
    /// id (ids are reused at once). Two such mistakes rarely make the same wrong read, so any
    /// two equal reads are the pump's settings.
    bool confirmRead();
    /// Whether confirmRead() has a read to compare the next one with.
    bool hasEarlierRead() const { return !mReads.isEmpty(); }
    /// Starts confirmRead() afresh, for reads of another kind (read-backs after Sets).
    void forgetReads() { mReads.clear(); }

    virtual void onDetails() = 0;
    virtual void onValueAnswered() = 0;
    virtual void onTimeout() = 0;

    QFile mFile;
    QJsonObject mRoot;
    /// By section name, so that "analog" or "network" comes before "oemPump".
    std::map<QString, PumpSettingsSection*> mSections;
    QTimer mTimeout;
    bool mBusy = false;
    communication::objects::PumpDetails mDetails;
    communication::PumpValues& mValues;

private:
    void onPumpDetails(const communication::objects::PumpDetails& details);

    // A read takes a few milliseconds. On a line that repeats one frame in twenty, about one
    // read in ten is wrong somewhere; six reads without two alike are then a broken line.
    static constexpr int kMaxReads = 6;

    bool mRunning = false;
    QList<QJsonObject> mReads;
};

} // namespace pumpSettings
