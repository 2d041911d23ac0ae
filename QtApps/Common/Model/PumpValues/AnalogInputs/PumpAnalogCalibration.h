#pragma once

#include "AttributeRetries.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogCalibrationObject.h"

#include "QtApps/Common/Logger/Log.h"

#include <QObject>

namespace communication {

/// Slope and offset of the analog input's calibration channels (attributes 0 to 2). It serves
/// all channels, so it books its own requests, retrying each up to the usual three sends, and
/// reports problems as error texts. An acknowledged set is read back.
class PumpAnalogCalibration final : public QObject {
    Q_OBJECT

public:
    explicit PumpAnalogCalibration(ProtocolObjectContainer& container);

signals:
    void error(QString error);
    void setCalibrationResult(uint8_t attribute);
    void getCalibrationResult(uint8_t attribute, float slope, float offset);

public slots:
    void onSetCalibration(uint8_t attribute, float slope, float offset);
    void onGetCalibration(uint8_t attribute);
    void onSetCalibrationAckResult(bool success, uint8_t attribute);
    void onSetCalibrationTimeout(uint8_t attribute);
    void onGetCalibrationAckResult(uint8_t attribute, float slope, float offset);
    void onGetCalibrationTimeout(uint8_t attribute);

private:
    struct Calibration {
        float slope = 0.0F;
        float offset = 0.0F;
    };
    static constexpr std::size_t kChannelCount = objects::AnalogCalibrationObject::kLastChannel + 1;

    void reportError(const logger::Site& site, const QString& text);

    objects::AnalogCalibrationObject& mProxy;
    std::array<Calibration, kChannelCount> mRequested{};
    AttributeRetries<kChannelCount> mSetRetries;
    AttributeRetries<kChannelCount> mGetRetries;
};

} // namespace communication
