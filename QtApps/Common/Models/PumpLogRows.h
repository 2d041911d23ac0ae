#pragma once

#include <QString>
#include <QtGlobal>

namespace models::log {

/// How the pump's event log is shown: an entry "<ms>:<text>" (the pump's uptime in
/// milliseconds, a colon, the event) becomes the row "<h>h <m>m <s>s <ms>ms: <text>", for
/// example "5025:Pump started" -> "0h 0m 5s 25ms: Pump started". Only the first colon
/// separates: "12:a:b" -> "0h 0m 0s 12ms: a:b".
///
/// Defined results for entries the pump should never send:
/// - a time stamp that is not a decimal integer counts as 0 ms;
/// - an entry without a colon has no time stamp: 0 ms, and the whole entry is the text;
/// - control characters (a line break, a NUL, other bytes that are not text) are shown as
///   U+FFFD, so that every entry stays one line on screen and in the export.

/// The prefix "%1h %2m %3s %4ms: " for a time in milliseconds, without padding.
QString TimePrefix(qint64 milliseconds);

/// The display row of one log entry as the pump delivers it.
QString DisplayRow(const QString& entry);

} // namespace models::log
