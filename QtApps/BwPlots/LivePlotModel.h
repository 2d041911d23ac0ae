#pragma once

#include "PlotChannel.h"
#include "SampleRing.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QQmlListProperty>
#include <QQmlParserStatus>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace plots {

/// The history of a live plot and its drawing: one fixed-size ring (SampleRing) holds a row of
/// every channel's figure per sample, and a timer hands each channel's series the visible part
/// of it with QXYSeries::replace(), so the chart redraws at the refresh rate however fast the
/// figures arrive, and an hour of streaming costs no more memory than a minute.
///
/// Sampling is either periodic (`sampleIntervalMs` > 0: every channel's figure as it stands) or
/// driven by the first channel (`sampleIntervalMs` 0: a row each time its property changes, the
/// others as they stand then, which suits a stream such as the 30 ms filter data). The x value of
/// a point is the sample's age in seconds (0 the newest, windowSeconds the oldest shown), and
/// the value axes' ranges follow what is visible, in round steps.
///
/// Paused, the plot stands still: nothing is sampled and nothing redrawn, and an export writes
/// exactly what shows.
class LivePlotModel : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "channels")
    /// The lines, in column order.
    Q_PROPERTY(QQmlListProperty<plots::PlotChannel> channels READ channels)
    /// Rows the history holds; a change empties it.
    Q_PROPERTY(int capacity READ capacity WRITE setCapacity NOTIFY capacityChanged)
    /// Milliseconds between samples; 0 samples on each change of the first channel.
    Q_PROPERTY(int sampleIntervalMs READ sampleIntervalMs WRITE setSampleIntervalMs NOTIFY
                   sampleIntervalMsChanged)
    /// The span the plot shows and exports, seconds.
    Q_PROPERTY(
        double windowSeconds READ windowSeconds WRITE setWindowSeconds NOTIFY windowSecondsChanged)
    /// A paused plot neither samples nor redraws.
    Q_PROPERTY(bool paused READ paused WRITE setPaused NOTIFY pausedChanged)
    /// Whether the chart is to be drawn (false while it cannot be seen); sampling goes on.
    Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
    /// Milliseconds between redraws.
    Q_PROPERTY(int refreshIntervalMs READ refreshIntervalMs WRITE setRefreshIntervalMs NOTIFY
                   refreshIntervalMsChanged)
    /// Whether the value axes always reach zero (a speed), or hug the figures (a signal's
    /// noise).
    Q_PROPERTY(bool includeZero READ includeZero WRITE setIncludeZero NOTIFY rangesChanged)
    /// Rows held now.
    Q_PROPERTY(int sampleCount READ sampleCount NOTIFY refreshed)
    /// The value axes' ranges for what is visible.
    Q_PROPERTY(double leftMinimum READ leftMinimum NOTIFY rangesChanged)
    Q_PROPERTY(double leftMaximum READ leftMaximum NOTIFY rangesChanged)
    Q_PROPERTY(double rightMinimum READ rightMinimum NOTIFY rangesChanged)
    Q_PROPERTY(double rightMaximum READ rightMaximum NOTIFY rangesChanged)

public:
    explicit LivePlotModel(QObject* parent = nullptr);
    ~LivePlotModel() override;

    QQmlListProperty<PlotChannel> channels();
    const std::vector<PlotChannel*>& channelList() const { return mChannels; }
    void appendChannel(PlotChannel* channel);

    int capacity() const { return mCapacity; }
    void setCapacity(int capacity);
    int sampleIntervalMs() const { return mSampleIntervalMs; }
    void setSampleIntervalMs(int milliseconds);
    double windowSeconds() const { return mWindowSeconds; }
    void setWindowSeconds(double seconds);
    bool paused() const { return mPaused; }
    void setPaused(bool paused);
    bool active() const { return mActive; }
    void setActive(bool active);
    int refreshIntervalMs() const { return mRefreshTimer.interval(); }
    void setRefreshIntervalMs(int milliseconds);
    bool includeZero() const { return mIncludeZero; }
    void setIncludeZero(bool includeZero);
    int sampleCount() const { return mRing ? static_cast<int>(mRing->size()) : 0; }
    double leftMinimum() const { return mRanges[0].minimum; }
    double leftMaximum() const { return mRanges[0].maximum; }
    double rightMinimum() const { return mRanges[1].minimum; }
    double rightMaximum() const { return mRanges[1].maximum; }

    /// The history (built when the QML object is complete, or by the first sample).
    const SampleRing* ring() const { return mRing.get(); }

    void classBegin() override {}
    void componentComplete() override;

public slots:
    /// Takes one row now (unless paused).
    void sample();
    /// Redraws the series now.
    void refresh();
    void clear();
    /// Asks where to save (proposing "<stem>_yyMMdd_hhmmss.csv" in Downloads) and exports there;
    /// false when the user cancelled or the file could not be written.
    bool exportCsv(const QString& stem);
    /// Writes what the plot shows to `path` as CSV: a heading line, then one line per sample
    /// oldest first: its age in seconds as on the plot, its time of day, and each channel's
    /// figure (empty where there is none). UTF-8, "." decimals, "\n" line ends. The file is
    /// replaced whole or, on failure, left as it was.
    bool exportToFile(const QString& path) const;

signals:
    void capacityChanged();
    void sampleIntervalMsChanged();
    void windowSecondsChanged();
    void pausedChanged();
    void activeChanged();
    void refreshIntervalMsChanged();
    void rangesChanged();
    /// The series were redrawn.
    void refreshed();

private:
    struct Range {
        double minimum = 0.0;
        double maximum = 1.0;
    };

    void rebuild();
    void rewire();
    void updateTimers();
    /// The time the plot shows as its "now": the present, or the moment it was paused.
    qint64 referenceMs() const;

    std::vector<PlotChannel*> mChannels;
    std::unique_ptr<SampleRing> mRing;
    std::vector<double> mRow;
    QList<QPointF> mPoints;
    QElapsedTimer mClock;
    QDateTime mStartedAt;
    qint64 mPausedAtMs = 0;
    QTimer mSampleTimer;
    QTimer mRefreshTimer;
    QMetaObject::Connection mTrigger;
    int mCapacity = 600;
    int mSampleIntervalMs = 100;
    double mWindowSeconds = 60.0;
    bool mPaused = false;
    bool mActive = true;
    bool mIncludeZero = false;
    bool mComplete = false;
    Range mRanges[2];
};

} // namespace plots
