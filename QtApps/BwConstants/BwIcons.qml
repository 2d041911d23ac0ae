pragma Singleton
import QtQuick

// The product's icons, drawn for it: single-colour 24-pixel SVGs that SvgImg tints by state.
QtObject {
    readonly property url warning: "qrc:/BwResources/Icons/warning.svg"
    readonly property url error: "qrc:/BwResources/Icons/error.svg"
    readonly property url check: "qrc:/BwResources/Icons/check.svg"
    readonly property url info: "qrc:/BwResources/Icons/info.svg"
    readonly property url chevronLeft: "qrc:/BwResources/Icons/chevron-left.svg"
    readonly property url chevronRight: "qrc:/BwResources/Icons/chevron-right.svg"
    readonly property url chevronDown: "qrc:/BwResources/Icons/chevron-down.svg"
    readonly property url close: "qrc:/BwResources/Icons/close.svg"
    readonly property url clockwise: "qrc:/BwResources/Icons/clockwise.svg"
    readonly property url anticlockwise: "qrc:/BwResources/Icons/anticlockwise.svg"
    readonly property url refresh: "qrc:/BwResources/Icons/refresh.svg"
    readonly property url folder: "qrc:/BwResources/Icons/folder.svg"
    readonly property url upload: "qrc:/BwResources/Icons/upload.svg"
    readonly property url download: "qrc:/BwResources/Icons/download.svg"
    readonly property url trash: "qrc:/BwResources/Icons/trash.svg"
    readonly property url restart: "qrc:/BwResources/Icons/restart.svg"
    readonly property url gauge: "qrc:/BwResources/Icons/gauge.svg"
    readonly property url pump: "qrc:/BwResources/Icons/pump.svg"
    readonly property url plug: "qrc:/BwResources/Icons/plug.svg"
    readonly property url lock: "qrc:/BwResources/Icons/lock.svg"
    readonly property url copy: "qrc:/BwResources/Icons/copy.svg"
}
