#pragma once

#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <QSet>
#include <QString>

#include <cmath>
#include <limits>
#include <optional>

// Figures crossing between the pump and the screens. The screens' numbers are JavaScript
// doubles; the pump's fields are integers of fixed width. Neither side's impossible figures may
// turn into plausible ones on the other.

namespace communication {

/// Logs, once per `what` for the life of the program, that the pump reported something the
/// screens cannot show as it is. A pump that keeps reporting it does not flood the log.
/// User-interface thread only.
inline void logImpossibleReport(const logger::Site& site, const QString& what,
                                const QString& message) {
    static QSet<QString> reported;
    if (!reported.contains(what)) {
        reported.insert(what);
        logger::write(logger::Level::Warn, site, message);
    }
}

/// A figure the pump reported, in the type the screens show it in. A figure the type cannot
/// hold is impossible for a working pump: it is shown clamped to the type's range (never wrapped
/// into a plausible one) and logged once.
template <typename To, typename From>
To reportedFigure(From value, const char* what, const logger::Site& site = "reportedFigure") {
    const To shown = wire::clamped<To>(value);
    if (static_cast<From>(shown) != value) {
        logImpossibleReport(site, QString::fromLatin1(what),
                            QStringLiteral("%1 of %2 reported, shown as %3")
                                .arg(QString::fromLatin1(what))
                                .arg(value)
                                .arg(shown));
    }
    return shown;
}

/// A figure a screen asks to send, for a pump field of type `Field`: a whole number within the
/// field's range. Anything else (a fraction, a negative count, NaN from a text that is not a
/// number, a figure past the field) is refused with a log line, and nothing should be sent.
/// The screens check ranges before they call; this is the last guard.
template <typename Field>
std::optional<Field> requestedFigure(double value, const char* what,
                                     const logger::Site& site = "requestedFigure") {
    using Limits = std::numeric_limits<Field>;
    const bool fits = std::isfinite(value) && std::trunc(value) == value &&
                      value >= static_cast<double>(Limits::min()) &&
                      value <= static_cast<double>(Limits::max());
    if (!fits) {
        logger::write(logger::Level::Warn, site,
                      QStringLiteral("%1 of %2 refused: not a whole number from %3 to %4")
                          .arg(QString::fromLatin1(what))
                          .arg(value)
                          .arg(Limits::min())
                          .arg(Limits::max()));
        return std::nullopt;
    }
    return static_cast<Field>(value);
}

} // namespace communication
