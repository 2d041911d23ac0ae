#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterData.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/PumpDetails.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedRangeProfile.h"

#include <QObject>
#include <QtQml/qqml.h>

#include <array>
#include <cstddef>

namespace halyard::device {
class SystemInterface;
}

namespace communication {

class AnalogFilterVariance;
class PumpValues;

/// The analog input filters of the current and voltage inputs for the screens
/// ("cpp.PumpAnalogFilterController"): the number of samples each filter averages and its
/// maximum, the live filter data (every 30 ms while subscribed), and how much input and output
/// wander, as a speed (tenths of rpm; see AnalogFilterVariance). The speed range profile that
/// scales the wander is read each time a pump is identified, and whenever anyone reads the range.
class PumpAnalogFilterController final : public QObject,
                                         public QmlSingleton<PumpAnalogFilterController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int currentNumSamples READ currentNumSamples NOTIFY currentNumSamplesChanged)
    /// The fewest samples the current filter takes (the same notification as the maximum).
    Q_PROPERTY(
        int currentNumSamplesMin READ currentNumSamplesMin NOTIFY currentNumSamplesMaxChanged)
    Q_PROPERTY(
        int currentNumSamplesMax READ currentNumSamplesMax NOTIFY currentNumSamplesMaxChanged)
    /// Input and output of the current filter (microamperes) and their variances.
    Q_PROPERTY(communication::objects::AnalogFilterData currentFilterData READ currentFilterData
                   NOTIFY currentFilterDataChanged)
    Q_PROPERTY(
        float currentInputVarianceDrpm READ currentInputVarianceDrpm NOTIFY currentVarianceChanged)
    Q_PROPERTY(float currentOutputVarianceDrpm READ currentOutputVarianceDrpm NOTIFY
                   currentVarianceChanged)
    Q_PROPERTY(int voltageNumSamples READ voltageNumSamples NOTIFY voltageNumSamplesChanged)
    /// The fewest samples the voltage filter takes (the same notification as the maximum).
    Q_PROPERTY(
        int voltageNumSamplesMin READ voltageNumSamplesMin NOTIFY voltageNumSamplesMaxChanged)
    Q_PROPERTY(
        int voltageNumSamplesMax READ voltageNumSamplesMax NOTIFY voltageNumSamplesMaxChanged)
    /// Input and output of the voltage filter (millivolts) and their variances.
    Q_PROPERTY(communication::objects::AnalogFilterData voltageFilterData READ voltageFilterData
                   NOTIFY voltageFilterDataChanged)
    Q_PROPERTY(
        float voltageInputVarianceDrpm READ voltageInputVarianceDrpm NOTIFY voltageVarianceChanged)
    Q_PROPERTY(float voltageOutputVarianceDrpm READ voltageOutputVarianceDrpm NOTIFY
                   voltageVarianceChanged)

public:
    /// The pump streams filter data every 30 ms.
    static constexpr uint32_t kSamplePeriodMs = 30;

    /// `clock` (not owned) stamps the filter samples.
    PumpAnalogFilterController(PumpValues& values, const halyard::device::SystemInterface& clock,
                               QObject* parent = nullptr);
    ~PumpAnalogFilterController() override;

    int currentNumSamples() const { return filter(Current).numSamples; }
    int currentNumSamplesMin() const { return filter(Current).numSamplesMin; }
    int currentNumSamplesMax() const { return filter(Current).numSamplesMax; }
    const objects::AnalogFilterData& currentFilterData() const { return filter(Current).data; }
    float currentInputVarianceDrpm() const;
    float currentOutputVarianceDrpm() const;
    int voltageNumSamples() const { return filter(Voltage).numSamples; }
    int voltageNumSamplesMin() const { return filter(Voltage).numSamplesMin; }
    int voltageNumSamplesMax() const { return filter(Voltage).numSamplesMax; }
    const objects::AnalogFilterData& voltageFilterData() const { return filter(Voltage).data; }
    float voltageInputVarianceDrpm() const;
    float voltageOutputVarianceDrpm() const;

signals:
    void currentNumSamplesChanged();
    void currentNumSamplesMaxChanged();
    void currentFilterDataChanged();
    void currentVarianceChanged();
    void voltageNumSamplesChanged();
    void voltageNumSamplesMaxChanged();
    void voltageFilterDataChanged();
    void voltageVarianceChanged();

public slots:
    void getCurrentNumSamples();
    void getCurrentNumSamplesMax();
    /// A count that is not a whole number within the pump's field is refused: false, nothing
    /// sent.
    bool setCurrentNumSamples(double numSamples);
    void subscribeCurrentFilterData();
    void unsubscribeCurrentFilterData();
    void getVoltageNumSamples();
    void getVoltageNumSamplesMax();
    bool setVoltageNumSamples(double numSamples);
    void subscribeVoltageFilterData();
    void unsubscribeVoltageFilterData();

    void pumpCurrent_numSamplesChanged(size_t numSamples);
    void pumpCurrent_numSamplesLimitsChanged(size_t minimum, size_t maximum);
    void pumpCurrent_filterDataChanged(const communication::objects::AnalogFilterData& data);
    void pumpCurrentSpeedRange_getSpeedRangeResponse(
        const communication::objects::QSpeedRangeProfile& profile);
    void pumpVoltage_numSamplesChanged(size_t numSamples);
    void pumpVoltage_numSamplesLimitsChanged(size_t minimum, size_t maximum);
    void pumpVoltage_filterDataChanged(const communication::objects::AnalogFilterData& data);
    void pumpVoltageSpeedRange_getSpeedRangeResponse(
        const communication::objects::QSpeedRangeProfile& profile);

private slots:
    void onPumpIdentified(const communication::objects::PumpDetails& details);

private:
    enum Input { Current, Voltage };
    /// What the pump reported of one filter, and its wander.
    struct Filter {
        int numSamples = 0;
        int numSamplesMin = 0;
        int numSamplesMax = 0;
        objects::AnalogFilterData data;
        objects::QSpeedRangeProfile profile;
        AnalogFilterVariance* variance = nullptr;
    };

    const Filter& filter(Input input) const { return mFilters[input]; }

    PumpValues& mValues;
    std::array<Filter, 2> mFilters{};
};

/// Tells the QML engine and tools (qmllint, the QML compiler) the fields of the record that
/// this controller hands to the screens, so that a screen reading a field that does not exist fails
/// the build.
struct QmlAnalogFilterData {
    Q_GADGET
    QML_FOREIGN(communication::objects::AnalogFilterData)
    QML_ANONYMOUS
};

} // namespace communication
