#include "LivePlotModel.h"

#include "QtApps/Common/Logger/Log.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QSaveFile>
#include <QXYSeries>

#include <algorithm>
#include <cmath>
#include <limits>

namespace plots {

namespace {

constexpr int kAxes = 2;

// A step of 1, 2 or 5 times a power of ten that cuts `span` into about five parts.
double roundStep(double span) {
    const double rough = span / 5.0;
    const double magnitude = std::pow(10.0, std::floor(std::log10(rough)));
    const double fraction = rough / magnitude;
    const double step = fraction <= 1.0   ? 1.0
                        : fraction <= 2.0 ? 2.0
                        : fraction <= 5.0 ? 5.0
                                          : 10.0;
    return step * magnitude;
}

QString csvField(const QString& text) {
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"'))) {
        return text;
    }
    QString quoted = text;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

} // namespace

LivePlotModel::LivePlotModel(QObject* parent)
    : QObject(parent)
    , mStartedAt(QDateTime::currentDateTime()) {
    mClock.start();
    connect(&mSampleTimer, &QTimer::timeout, this, &LivePlotModel::sample);
    mRefreshTimer.setInterval(100);
    connect(&mRefreshTimer, &QTimer::timeout, this, &LivePlotModel::refresh);
}

LivePlotModel::~LivePlotModel() = default;

QQmlListProperty<PlotChannel> LivePlotModel::channels() {
    return QQmlListProperty<PlotChannel>(
        this, nullptr,
        [](QQmlListProperty<PlotChannel>* list, PlotChannel* channel) {
            static_cast<LivePlotModel*>(list->object)->appendChannel(channel);
        },
        [](QQmlListProperty<PlotChannel>* list) {
            return static_cast<qsizetype>(
                static_cast<LivePlotModel*>(list->object)->mChannels.size());
        },
        [](QQmlListProperty<PlotChannel>* list, qsizetype index) {
            return static_cast<LivePlotModel*>(list->object)
                ->mChannels[static_cast<std::size_t>(index)];
        },
        nullptr);
}

void LivePlotModel::appendChannel(PlotChannel* channel) {
    mChannels.push_back(channel);
    if (mComplete) {
        rebuild();
    }
}

void LivePlotModel::componentComplete() {
    mComplete = true;
    rebuild();
}

// A new shape of history starts empty.
void LivePlotModel::rebuild() {
    mRing = std::make_unique<SampleRing>(static_cast<std::size_t>(std::max(mCapacity, 1)),
                                         mChannels.size());
    mRow.assign(mChannels.size(), 0.0);
    mPoints.reserve(mCapacity);
    rewire();
    updateTimers();
}

void LivePlotModel::rewire() {
    disconnect(mTrigger);
    if (mSampleIntervalMs == 0 && !mChannels.empty()) {
        mTrigger = connect(mChannels.front(), &PlotChannel::notified, this, &LivePlotModel::sample);
    }
}

void LivePlotModel::updateTimers() {
    const bool running = mComplete && !mPaused;
    if (running && mSampleIntervalMs > 0) {
        mSampleTimer.start(mSampleIntervalMs);
    } else {
        mSampleTimer.stop();
    }
    if (running && mActive) {
        mRefreshTimer.start();
    } else {
        mRefreshTimer.stop();
    }
}

void LivePlotModel::setCapacity(int capacity) {
    if (capacity == mCapacity || capacity < 1) {
        return;
    }
    mCapacity = capacity;
    if (mComplete) {
        rebuild();
    }
    emit capacityChanged();
}

void LivePlotModel::setSampleIntervalMs(int milliseconds) {
    if (milliseconds == mSampleIntervalMs || milliseconds < 0) {
        return;
    }
    mSampleIntervalMs = milliseconds;
    rewire();
    updateTimers();
    emit sampleIntervalMsChanged();
}

void LivePlotModel::setWindowSeconds(double seconds) {
    if (seconds == mWindowSeconds || !(seconds > 0.0)) {
        return;
    }
    mWindowSeconds = seconds;
    emit windowSecondsChanged();
    refresh();
}

void LivePlotModel::setPaused(bool paused) {
    if (paused == mPaused) {
        return;
    }
    if (paused) {
        // The last redraw before the pause is what stands, and what an export writes.
        refresh();
        mPausedAtMs = mClock.elapsed();
    }
    mPaused = paused;
    updateTimers();
    emit pausedChanged();
}

void LivePlotModel::setActive(bool active) {
    if (active == mActive) {
        return;
    }
    mActive = active;
    updateTimers();
    emit activeChanged();
}

void LivePlotModel::setRefreshIntervalMs(int milliseconds) {
    if (milliseconds == mRefreshTimer.interval() || milliseconds < 1) {
        return;
    }
    mRefreshTimer.setInterval(milliseconds);
    emit refreshIntervalMsChanged();
}

void LivePlotModel::setIncludeZero(bool includeZero) {
    if (includeZero == mIncludeZero) {
        return;
    }
    mIncludeZero = includeZero;
    refresh();
}

qint64 LivePlotModel::referenceMs() const {
    return mPaused ? mPausedAtMs : mClock.elapsed();
}

void LivePlotModel::sample() {
    if (mPaused) {
        return;
    }
    if (!mRing) {
        rebuild();
    }
    for (std::size_t column = 0; column < mChannels.size(); ++column) {
        mRow[column] = mChannels[column]->read();
    }
    mRing->push(mClock.elapsed(), mRow.data());
}

void LivePlotModel::clear() {
    if (mRing) {
        mRing->clear();
    }
    refresh();
}

void LivePlotModel::refresh() {
    if (!mRing) {
        return;
    }
    const qint64 now = referenceMs();
    const auto first = mRing->firstAtOrAfter(now - static_cast<qint64>(mWindowSeconds * 1000.0));
    double low[kAxes] = {std::numeric_limits<double>::infinity(),
                         std::numeric_limits<double>::infinity()};
    double high[kAxes] = {-std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()};
    for (std::size_t column = 0; column < mChannels.size(); ++column) {
        const PlotChannel* channel = mChannels[column];
        const int axis = std::clamp(channel->axis(), 0, kAxes - 1);
        mPoints.clear();
        for (std::size_t row = first; row < mRing->size(); ++row) {
            const double value = mRing->valueAt(row, column);
            // A missing figure is a gap: no point, and no say in the axis range.
            if (!std::isfinite(value)) {
                continue;
            }
            mPoints.append(QPointF(static_cast<double>(now - mRing->timeAt(row)) / 1000.0, value));
            low[axis] = std::min(low[axis], value);
            high[axis] = std::max(high[axis], value);
        }
        if (auto* series = qobject_cast<QXYSeries*>(channel->series())) {
            series->replace(mPoints);
        }
    }

    bool changed = false;
    for (int axis = 0; axis < kAxes; ++axis) {
        double minimum = low[axis];
        double maximum = high[axis];
        if (minimum > maximum) {
            minimum = 0.0; // nothing visible
            maximum = 1.0;
        }
        if (mIncludeZero) {
            minimum = std::min(minimum, 0.0);
            maximum = std::max(maximum, 0.0);
        }
        if (maximum - minimum < 1e-9) {
            // A flat line sits in the middle of a small range rather than on an edge.
            const double pad = std::max(std::fabs(maximum) * 0.1, 1.0);
            minimum -= pad;
            maximum += pad;
        }
        const double step = roundStep(maximum - minimum);
        const Range range{std::floor(minimum / step) * step, std::ceil(maximum / step) * step};
        if (range.minimum != mRanges[axis].minimum || range.maximum != mRanges[axis].maximum) {
            mRanges[axis] = range;
            changed = true;
        }
    }
    if (changed) {
        emit rangesChanged();
    }
    emit refreshed();
}

bool LivePlotModel::exportCsv(const QString& stem) {
    const QString proposed =
        QDir::homePath() + QStringLiteral("/Downloads/") + stem +
        QDateTime::currentDateTime().toString(QStringLiteral("_yyMMdd_hhmmss")) +
        QStringLiteral(".csv");
    const QString path = QFileDialog::getSaveFileName(
        nullptr, QCoreApplication::translate("LivePlotModel", "Export plot"), proposed,
        QCoreApplication::translate("LivePlotModel", "CSV files (*.csv)"));
    return !path.isEmpty() && exportToFile(path);
}

bool LivePlotModel::exportToFile(const QString& path) const {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        BWL_LOG_WARN(
            "exportToFile",
            QStringLiteral("Cannot export the plot to %1: %2").arg(path, file.errorString()));
        return false;
    }
    QString text = QCoreApplication::translate("LivePlotModel", "Age (s)") + QLatin1Char(',') +
                   QCoreApplication::translate("LivePlotModel", "Time of day");
    for (const PlotChannel* channel : mChannels) {
        text += QLatin1Char(',') + csvField(channel->heading());
    }
    text += QLatin1Char('\n');
    if (mRing) {
        const qint64 now = referenceMs();
        const auto first =
            mRing->firstAtOrAfter(now - static_cast<qint64>(mWindowSeconds * 1000.0));
        for (std::size_t row = first; row < mRing->size(); ++row) {
            const qint64 time = mRing->timeAt(row);
            if (time > now) {
                break;
            }
            text += QString::number(static_cast<double>(now - time) / 1000.0, 'f', 3) +
                    QLatin1Char(',') +
                    mStartedAt.addMSecs(time).toString(QStringLiteral("hh:mm:ss.zzz"));
            for (std::size_t column = 0; column < mChannels.size(); ++column) {
                const double value = mRing->valueAt(row, column);
                text += QLatin1Char(',');
                if (std::isfinite(value)) {
                    text += QString::number(value, 'g', 7);
                }
            }
            text += QLatin1Char('\n');
        }
    }
    const QByteArray bytes = text.toUtf8();
    if (file.write(bytes) != bytes.size() || !file.commit()) {
        BWL_LOG_WARN(
            "exportToFile",
            QStringLiteral("Cannot export the plot to %1: %2").arg(path, file.errorString()));
        return false;
    }
    BWL_LOG_INFO("exportToFile", QStringLiteral("Plot exported to %1").arg(path));
    return true;
}

} // namespace plots
