import QtQuick
import BwConstants
import BwLib

// "About": the product, its version and build, and the libraries it is built on with their
// licences.
ModalOverlay {
    id: about

    /// The application's version.
    property string appVersion: ""

    title: qsTr("About")
    text: qsTr("%1, version %2 (build %3).\nThe service tool for peristaltic pump drives.")
          .arg(Qt.application.name).arg(about.appVersion).arg(BuildInfo.build)
    confirmText: ""
    cancelText: qsTr("Close")

    FileReader {
        id: licences
        source: "qrc:/contents/LICENCES.txt"
    }
    Text {
        objectName: "licences"
        width: parent ? parent.width : implicitWidth
        text: licences.text.length > 0 ? licences.text : licences.error
        font.pixelSize: BwFonts.small
        color: BwColours.textMuted
        wrapMode: Text.Wrap
    }
}
