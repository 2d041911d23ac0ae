#include "DottedAddress.h"

#include <QRegularExpression>

namespace pumpSettings {

std::optional<std::uint32_t> parseDottedAddress(const QString& text) {
    // [0-9] rather than \d, which takes other scripts' digits too; anchored to the whole text,
    // since $ alone would let a trailing newline through.
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("(0|[1-9][0-9]{0,2})\\.(0|[1-9][0-9]{0,2})\\.(0|[1-9][0-9]{0,2})\\."
                       "(0|[1-9][0-9]{0,2})")));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    std::uint32_t address = 0;
    for (int part = 1; part <= 4; ++part) {
        const uint octet = match.capturedView(part).toUInt();
        if (octet > 255) {
            return std::nullopt;
        }
        address = (address << 8U) | octet;
    }
    return address;
}

QString dottedAddress(std::uint32_t address) {
    return QStringLiteral("%1.%2.%3.%4")
        .arg((address >> 24U) & 0xFFU)
        .arg((address >> 16U) & 0xFFU)
        .arg((address >> 8U) & 0xFFU)
        .arg(address & 0xFFU);
}

} // namespace pumpSettings
