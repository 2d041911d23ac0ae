#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace communication::objects {

/// The OEM identity of the pump. Texts are kept as they arrived, with their NUL, in fields one
/// byte longer than the longest text.
struct PumpDetails {
    static constexpr std::size_t kSerialCapacity = 33;
    static constexpr std::size_t kPartNumberCapacity = 33;
    static constexpr std::size_t kDescriptionCapacity = 65;

    std::uint8_t pumpType = 0; ///< device type, same table as DeviceDetails::deviceType
    std::uint8_t motorType = 0;
    std::uint8_t headType = 0; ///< pump-head index, 0 to 26
    std::array<char, kSerialCapacity> pumpSerial{};
    std::size_t pumpSerialLength = 0;
    std::array<char, kPartNumberCapacity> partNumber{};
    std::size_t partNumberLength = 0;
    /// Filled by its own request, not by get-all.
    std::array<char, kDescriptionCapacity> productDescription{};
    std::size_t productDescriptionLength = 0;
    std::uint8_t isNetworkPump = 0;
    std::uint8_t isStepperPump = 0;

    QString PumpSerialText() const {
        return QString::fromLatin1(pumpSerial.data(), static_cast<qsizetype>(pumpSerialLength));
    }
    QString PartNumberText() const {
        return QString::fromLatin1(partNumber.data(), static_cast<qsizetype>(partNumberLength));
    }
    QString ProductDescriptionText() const {
        return QString::fromLatin1(productDescription.data(),
                                   static_cast<qsizetype>(productDescriptionLength));
    }
};

} // namespace communication::objects
