#include "ValuesLink.h"

#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpCurrentSpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpFrequencySpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageSpeedRange.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionCurrent.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionFrequency.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionVoltage.h"

#include <QSignalSpy>
#include <QTest>

using communication::objects::QSpeedRangeProfile;

namespace {

std::vector<uint8_t> profileBytes(const QSpeedRangeProfile& profile) {
    std::vector<uint8_t> bytes;
    for (const uint32_t field : {profile.MinimumSpeedDrpm, profile.MaximumSpeedDrpm,
                                 profile.MinimumInput, profile.MaximumInput, profile.Hysteresis}) {
        for (int shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<uint8_t>(field >> shift));
        }
    }
    return bytes;
}

// Reads a profile through the speed range value, as the pump would answer it, and returns what
// the resolution object made of it: its one emitted value, -1 when it emitted nothing, -2 when
// it emitted more than once.
template <typename Range, typename Resolution>
qint64 resolutionOf(const QSpeedRangeProfile& profile) {
    ValuesLink link;
    Range range(link.container());
    Resolution resolution(&range);
    QSignalSpy spy(&resolution, &Resolution::speedResolutionUpdate);
    range.getSpeedRange();
    link.acknowledge(link.lastSent(), profileBytes(profile));
    if (spy.count() != 1) {
        return spy.isEmpty() ? -1 : -2;
    }
    return static_cast<qint64>(spy.at(0).at(0).toUInt());
}

} // namespace

// The resolution objects turn each profile read into how many tenths of rpm one measurement
// step is worth.
class SpeedResolutionTest : public QObject {
    Q_OBJECT

private slots:
    void currentAndVoltage_data();
    void currentAndVoltage();
    void frequency_data();
    void frequency();
};

void SpeedResolutionTest::currentAndVoltage_data() {
    QTest::addColumn<bool>("voltage");
    QTest::addColumn<QSpeedRangeProfile>("profile");
    QTest::addColumn<qint64>("resolution");

    QTest::newRow("current 4-20 mA over 0-1000 rpm: 10500 steps")
        << false << QSpeedRangeProfile{0, 10000, 4000, 20000, 0} << qint64{1};
    QTest::newRow("current half the span")
        << false << QSpeedRangeProfile{0, 10000, 4000, 12000, 0} << qint64{2};
    QTest::newRow("voltage 15256 tenths over 15256 steps")
        << true << QSpeedRangeProfile{0, 15256, 0, 10000, 0} << qint64{1};
    QTest::newRow("voltage one tenth more rounds up")
        << true << QSpeedRangeProfile{0, 15257, 0, 10000, 0} << qint64{2};
    QTest::newRow("voltage speeds and inputs descending")
        << true << QSpeedRangeProfile{15257, 0, 10000, 0, 0} << qint64{2};
    QTest::newRow("current equal inputs: no steps gives 0")
        << false << QSpeedRangeProfile{0, 10000, 5000, 5000, 0} << qint64{0};
    QTest::newRow("voltage all zero gives 0") << true << QSpeedRangeProfile{} << qint64{0};
}

void SpeedResolutionTest::currentAndVoltage() {
    QFETCH(bool, voltage);
    QFETCH(QSpeedRangeProfile, profile);
    QFETCH(qint64, resolution);
    using namespace communication;
    using namespace speedResolution;
    const qint64 actual =
        voltage ? resolutionOf<PumpVoltageSpeedRange, SpeedResolutionVoltage>(profile)
                : resolutionOf<PumpCurrentSpeedRange, SpeedResolutionCurrent>(profile);
    QCOMPARE(actual, resolution);
}

void SpeedResolutionTest::frequency_data() {
    QTest::addColumn<QSpeedRangeProfile>("profile");
    QTest::addColumn<qint64>("resolution");

    // 1/10 - 1/1000 s is 8,910,000 ticks of 90 MHz, less 2.
    QTest::newRow("10 to 1000 Hz over 0 to 30000")
        << QSpeedRangeProfile{0, 30000, 10, 1000, 0} << qint64{1};
    QTest::newRow("speed falling with frequency")
        << QSpeedRangeProfile{30000000, 0, 10, 1000, 0} << qint64{4};
    QTest::newRow("minimum below 2 Hz: nothing")
        << QSpeedRangeProfile{0, 30000, 1, 1000, 0} << qint64{-1};
    QTest::newRow("maximum of 0 Hz: nothing")
        << QSpeedRangeProfile{0, 30000, 10, 0, 0} << qint64{-1};
    QTest::newRow("2 Hz is measured") << QSpeedRangeProfile{0, 100, 2, 2, 0} << qint64{50};
}

void SpeedResolutionTest::frequency() {
    QFETCH(QSpeedRangeProfile, profile);
    QFETCH(qint64, resolution);
    using namespace communication;
    using namespace speedResolution;
    QCOMPARE((resolutionOf<PumpFrequencySpeedRange, SpeedResolutionFrequency>(profile)),
             resolution);
}

QTEST_GUILESS_MAIN(SpeedResolutionTest)
#include "tst_SpeedResolution.moc"
