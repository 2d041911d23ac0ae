import QtQuick
import QtTest
import cpp.FirmwareUpdateController
import cpp.PumpAnalogFilterController
import cpp.PumpApplicationSpeedController
import cpp.PumpDetailsController
import cpp.PumpNetworkController
import cpp.PumpSessionController
import cpp.PumpSettingsController
import cpp.PumpSpeedRangeController
import cpp.PumpValuesController

TestCase {
    name: "Controllers"

    SignalSpy {
        id: previewSpy
        target: PumpSettingsController
        signalName: "loadPreviewReady"
    }

    function test_everyControllerAnswersThroughItsModule() {
        compare(PumpAnalogFilterController.currentNumSamples, 0)
        verify(!PumpAnalogFilterController.setVoltageNumSamples(-1))
        compare(PumpApplicationSpeedController.motorDirection, PumpApplicationSpeedController.Clockwise)
        verify(!PumpApplicationSpeedController.setApplicationSpeedDrpm(1.5))
        compare(PumpDetailsController.appVersion, "")
        compare(PumpDetailsController.isNetworkPump, false)
        compare(PumpNetworkController.ipAddress, "0.0.0.0")
        verify(PumpNetworkController.isValidAddress("192.168.0.10"))
        verify(!PumpNetworkController.setIpConfig(false, "1.2.3", "255.255.255.0", "1.2.3.4"))
        compare(PumpSessionController.pumpConnected, false)
        compare(PumpSettingsController.pumpControlInput, "")
        verify(!PumpSettingsController.setControlInput("Sideways"))
        compare(PumpSettingsController.celerationLimits.maximumRpmPerSec, 0)
        compare(PumpSpeedRangeController.voltageProfileDrpm.MaximumSpeedDrpm, 0)
        verify(!PumpSpeedRangeController.setEnableLineSpeedDrpm(-10))
        compare(PumpValuesController.pumpActualSpeedDrpm, 0)
        compare(PumpValuesController.direction, "Forward")
        compare(FirmwareUpdateController.state, 0)
        compare(FirmwareUpdateController.updateEnabled, false)
        FirmwareUpdateController.startUpdate()
        PumpValuesController.subscribe()
    }

    // A file dialog's URL reaches the settings procedures; a file that is not there is refused
    // at once, and the screen gets the result's text and an empty preview.
    function test_settingsFilePreviewTakesTheFileDialogsUrl() {
        verify(PumpSettingsController.previewLoad("file:///no-such-folder/pump-settings.json"))
        compare(previewSpy.count, 1)
        compare(previewSpy.signalArguments[0][0], false)
        compare(PumpSettingsController.loadPreviewResult, "Could not open file")
        compare(PumpSettingsController.loadPreview.length, 0)
        verify(!PumpSettingsController.settingsFileBusy)
    }
}
