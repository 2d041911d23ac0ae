import QtQuick
import BwLib

// "About": the product, its version and the libraries it is built on.
ModalOverlay {
    id: about

    /// The application's version.
    property string appVersion: ""

    title: qsTr("About")
    text: qsTr("%1, version %2.\nThe service tool for peristaltic pump drives.").arg(Qt.application.name).arg(about.appVersion)
    confirmText: ""
    cancelText: qsTr("Close")
}
