// The live plots' history and drawing: the fixed-size ring, channels that read a property (or a
// field of a record property) in C++, sampling on change, the window handed to a line series,
// the rounded axes, pause and the CSV export.
#include "QtApps/BwPlots/LivePlotModel.h"
#include "QtApps/BwPlots/PlotChannel.h"
#include "QtApps/BwPlots/SampleRing.h"

#include <QFile>
#include <QLineSeries>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using plots::LivePlotModel;
using plots::PlotChannel;
using plots::SampleRing;

namespace plotstest {

// A record as the controllers hand them out (an analog filter sample).
struct FilterSample {
    Q_GADGET
    Q_PROPERTY(float input MEMBER input)

public:
    float input = 0.0F;
};

} // namespace plotstest

Q_DECLARE_METATYPE(plotstest::FilterSample)

namespace plotstest {

// A stand-in for a controller: a speed and a filter sample, each with its change signal.
class Source : public QObject {
    Q_OBJECT
    Q_PROPERTY(int speedDrpm MEMBER mSpeedDrpm NOTIFY speedChanged)
    Q_PROPERTY(FilterSample sample READ sample NOTIFY sampleChanged)

public:
    FilterSample sample() const { return mSample; }
    void setSpeed(int drpm) {
        mSpeedDrpm = drpm;
        emit speedChanged();
    }
    void setInput(float input) {
        mSample.input = input;
        emit sampleChanged();
    }

signals:
    void speedChanged();
    void sampleChanged();

private:
    int mSpeedDrpm = 0;
    FilterSample mSample;
};

PlotChannel* channel(LivePlotModel& model, Source& source, const char* property,
                     const char* field = "") {
    auto* added = new PlotChannel(&model);
    added->setSource(&source);
    added->setPropertyName(QString::fromLatin1(property));
    added->setField(QString::fromLatin1(field));
    model.appendChannel(added);
    return added;
}

} // namespace plotstest

using plotstest::channel;
using plotstest::Source;

class LivePlotsTest : public QObject {
    Q_OBJECT

private slots:
    void ring_keepsExactlyItsCapacityOfTheNewestRows_data();
    void ring_keepsExactlyItsCapacityOfTheNewestRows();
    void model_samplesFieldsScaledOnEachChangeOfTheFirstChannel();
    void model_drawsTheWindowAndRoundsTheAxes();
    void model_pausedPlotStandsStillAndExportsWhatItShows();
};

void LivePlotsTest::ring_keepsExactlyItsCapacityOfTheNewestRows_data() {
    QTest::addColumn<int>("pushed");
    QTest::newRow("empty") << 0;
    QTest::newRow("one short of full") << 4;
    QTest::newRow("full") << 5;
    QTest::newRow("one over") << 6;
    QTest::newRow("many times over") << 5 * 1000 + 3;
}

void LivePlotsTest::ring_keepsExactlyItsCapacityOfTheNewestRows() {
    QFETCH(int, pushed);
    constexpr std::size_t kCapacity = 5;
    SampleRing ring(kCapacity, 2);
    for (int i = 0; i < pushed; ++i) {
        const double row[] = {i * 1.0, -i * 1.0};
        ring.push(i * 10, row);
    }

    const auto held = std::min<std::size_t>(static_cast<std::size_t>(pushed), kCapacity);
    QCOMPARE(ring.size(), held);
    QCOMPARE(ring.capacity(), kCapacity);
    // The newest rows, oldest first, each with its own values.
    for (std::size_t index = 0; index < held; ++index) {
        const auto expected = static_cast<int>(static_cast<std::size_t>(pushed) - held + index);
        QCOMPARE(ring.timeAt(index), std::int64_t{expected} * 10);
        QCOMPARE(ring.valueAt(index, 0), expected * 1.0);
        QCOMPARE(ring.valueAt(index, 1), -expected * 1.0);
    }
    if (held > 0) {
        const std::int64_t newest = ring.timeAt(held - 1);
        QCOMPARE(ring.firstAtOrAfter(newest), held - 1);
        QCOMPARE(ring.firstAtOrAfter(newest + 1), held);
        QCOMPARE(ring.firstAtOrAfter(0), std::size_t{0});
    }
}

void LivePlotsTest::model_samplesFieldsScaledOnEachChangeOfTheFirstChannel() {
    Source source;
    LivePlotModel model;
    model.setSampleIntervalMs(0);
    PlotChannel* input = channel(model, source, "sample", "input");
    input->setScale(0.001);
    PlotChannel* speed = channel(model, source, "speedDrpm");
    speed->setScale(0.1);
    speed->setAbsolute(true);
    PlotChannel* missing = channel(model, source, "noSuchProperty");
    model.componentComplete();

    source.setSpeed(-1205); // not the first channel: held, no row
    QCOMPARE(model.sampleCount(), 0);
    source.setInput(6500.0F);
    source.setInput(7000.0F);
    QCOMPARE(model.sampleCount(), 2);
    const SampleRing& ring = *model.ring();
    QCOMPARE(ring.valueAt(0, 0), 6.5);
    QCOMPARE(ring.valueAt(1, 0), 7.0);
    QCOMPARE(ring.valueAt(1, 1), 120.5);
    QVERIFY(std::isnan(ring.valueAt(1, 2)));
    QVERIFY(std::isnan(missing->read()));

    // A channel that follows another property follows its changes instead.
    input->setPropertyName(QStringLiteral("speedDrpm"));
    input->setField(QString());
    source.setInput(1.0F);
    QCOMPARE(model.sampleCount(), 2);
    source.setSpeed(300);
    QCOMPARE(model.sampleCount(), 3);
}

void LivePlotsTest::model_drawsTheWindowAndRoundsTheAxes() {
    Source source;
    LivePlotModel model;
    model.setSampleIntervalMs(0);
    model.setCapacity(4);
    model.setWindowSeconds(0.2);
    PlotChannel* speed = channel(model, source, "speedDrpm");
    speed->setScale(0.1);
    QLineSeries line;
    speed->setSeries(&line);
    PlotChannel* input = channel(model, source, "sample", "input");
    input->setAxis(1);
    model.componentComplete();

    source.setInput(0.25F); // held: each speed's row takes it along
    for (const int drpm : {10, 20, 1234, 560, 780, 905}) {
        source.setSpeed(drpm);
    }
    model.refresh();
    // The capacity's newest rows, ages from now (the newest nearly 0), in time order.
    const QList<QPointF> points = line.points();
    QCOMPARE(points.size(), 4);
    QCOMPARE(points.front().y(), 123.4);
    QCOMPARE(points.back().y(), 90.5);
    QVERIFY(points.front().x() >= points.back().x() && points.back().x() >= 0.0);
    // 56..123.4 in steps of 20; the right axis gets 0.25 alone: a flat line in a padded range.
    QCOMPARE(model.leftMinimum(), 40.0);
    QCOMPARE(model.leftMaximum(), 140.0);
    QVERIFY(model.rightMinimum() < 0.25 && model.rightMaximum() > 0.25);

    // Rows older than the window leave the line.
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            model.refresh();
            return line.count() == 0;
        }(),
        2000);
    QCOMPARE(model.sampleCount(), 4);
}

void LivePlotsTest::model_pausedPlotStandsStillAndExportsWhatItShows() {
    Source source;
    LivePlotModel model;
    model.setSampleIntervalMs(0);
    PlotChannel* speed = channel(model, source, "speedDrpm");
    speed->setScale(0.1);
    speed->setName(QStringLiteral("Actual speed"));
    speed->setUnit(QStringLiteral("RPM"));
    PlotChannel* input = channel(model, source, "sample", "input");
    input->setName(QStringLiteral("Input, filtered"));
    QLineSeries line;
    speed->setSeries(&line);
    model.componentComplete();
    QSignalSpy refreshed(&model, &LivePlotModel::refreshed);

    source.setSpeed(1205);
    source.setSpeed(1500);
    model.setPaused(true);
    QCOMPARE(refreshed.count(), 1); // the pause draws what stands
    source.setSpeed(2000);
    QCOMPARE(model.sampleCount(), 2);
    QCOMPARE(line.count(), 2);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("speed.csv"));
    QVERIFY(model.exportToFile(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QCOMPARE(lines.size(), 4); // heading, two rows, and the last line's end
    QCOMPARE(lines[0], QByteArray("Age (s),Time of day,Actual speed (RPM),\"Input, filtered\""));
    const QList<QByteArray> newest = lines[2].split(',');
    QCOMPARE(newest.size(), 4);
    bool isAge = false;
    QVERIFY(newest[0].toDouble(&isAge) < 0.5 && isAge);
    QCOMPARE(newest[2], QByteArray("150"));
    QCOMPARE(newest[3], QByteArray("0"));
    QVERIFY(lines[3].isEmpty());

    QVERIFY(!model.exportToFile(folder.filePath(QStringLiteral("no/such/folder/x.csv"))));
    model.setPaused(false);
    source.setSpeed(2500);
    QCOMPARE(model.sampleCount(), 3);
}

QTEST_MAIN(LivePlotsTest)
#include "tst_LivePlots.moc"
