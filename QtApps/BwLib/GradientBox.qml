import QtQuick
import BwConstants

// A surface that fades from `topColour` to `bottomColour`, for the side panel's foot behind the
// logo.
Rectangle {
    id: box

    /// The colours at the top and the bottom.
    property color topColour: BwColours.surface
    property color bottomColour: BwColours.background

    gradient: Gradient {
        GradientStop { position: 0.0; color: box.topColour }
        GradientStop { position: 1.0; color: box.bottomColour }
    }
}
