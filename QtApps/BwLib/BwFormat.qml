pragma Singleton
import QtQuick

// The one place figures are turned into text: a fixed number of decimals, the same decimal point
// whatever the language (figures are compared with the pump's manuals), and a dash for a figure
// that does not exist.
QtObject {
    /// The dash shown for a figure that is not finite.
    readonly property string noFigure: "\u2014"

    /// `value` with `decimals` decimals; the dash when it is not a finite number.
    function number(value, decimals) {
        if (typeof value !== "number" || !isFinite(value))
            return noFigure
        return value.toFixed(decimals)
    }
    /// A speed in tenths of rpm as rpm with one decimal.
    function rpm(drpm) {
        return number(drpm / 10, 1)
    }
    /// Reads a figure the user typed: digits with "." or "," as the decimal mark, an optional
    /// sign; NaN for anything else.
    function parse(text) {
        const trimmed = String(text).trim().replace(",", ".")
        if (!/^[-+]?(\d+\.?\d*|\.\d+)$/.test(trimmed))
            return NaN
        return Number(trimmed)
    }
}
