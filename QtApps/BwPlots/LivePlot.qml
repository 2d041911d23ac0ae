import QtQuick
import QtQuick.Layouts
import QtCharts
import BwConstants
import BwControls
import BwPlots

// A live plot: the chart of a LivePlotModel with its controls (pause, the time window, export
// to CSV). It makes one line series per channel of the model, as the channel describes it (name,
// colour, dashes, axis), and hands it to the channel: the model then feeds it from C++, and the
// chart itself never samples.
ColumnLayout {
    id: plot

    /// The history the chart draws.
    required property LivePlotModel model
    /// The left axis' unit; the right axis shows only with a unit of its own.
    property string leftUnit: ""
    property string rightUnit: ""
    /// The time windows offered, seconds, shortest first.
    property var windowChoices: [10, 30, 60]
    /// The start of an export's proposed file name.
    property string exportStem: "plot"

    spacing: BwSpacing.small

    // Series made by the chart attach to its axes; series declared from outside do not.
    Component.onCompleted: {
        for (let i = 0; i < model.channels.length; ++i) {
            const channel = model.channels[i]
            const line = channel.axis === 1
                ? chart.createSeries(ChartView.SeriesTypeLine, channel.name, timeAxis)
                : chart.createSeries(ChartView.SeriesTypeLine, channel.name, timeAxis, leftAxis)
            if (channel.axis === 1)
                line.axisYRight = rightAxis
            line.color = channel.color
            line.width = BwSpacing.plotLineWidth
            line.style = channel.dashed ? Qt.DashLine : Qt.SolidLine
            channel.series = line
        }
    }

    // Round ticks in a span of about five steps, as the model rounds its ranges.
    function tickStep(span) {
        const rough = span / 5
        const magnitude = Math.pow(10, Math.floor(Math.log(rough) / Math.LN10))
        const fraction = rough / magnitude
        return (fraction <= 1 ? 1 : fraction <= 2 ? 2 : fraction <= 5 ? 5 : 10) * magnitude
    }
    function labelFormat(step) {
        return "%." + Math.max(0, -Math.floor(Math.log(step) / Math.LN10 + 1e-9)) + "f"
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: BwSpacing.small

        Text {
            id: status
            objectName: "plotStatus"
            Layout.fillWidth: true
            text: plot.model.paused ? qsTr("Paused") : ""
            font.pixelSize: BwFonts.label
            color: BwColours.textMuted
            elide: Text.ElideRight
        }
        Button {
            objectName: "plotPauseButton"
            kind: "flat"
            text: plot.model.paused ? qsTr("Resume") : qsTr("Pause")
            Accessible.name: plot.model.paused ? qsTr("Resume the plot") : qsTr("Pause the plot")
            onClicked: plot.model.paused = !plot.model.paused
        }
        ComboBox {
            objectName: "plotWindowChooser"
            Layout.preferredWidth: BwSpacing.fieldWidth
            model: plot.windowChoices.map(seconds => qsTr("%1 s").arg(seconds))
            currentIndex: plot.windowChoices.indexOf(plot.model.windowSeconds)
            Accessible.name: qsTr("Time shown")
            onActivated: index => plot.model.windowSeconds = plot.windowChoices[index]
        }
        Button {
            objectName: "plotExportButton"
            kind: "flat"
            text: qsTr("Export CSV\u2026")
            Accessible.name: qsTr("Export the plot to a CSV file")
            onClicked: status.text = plot.model.exportCsv(plot.exportStem)
                       ? qsTr("Exported") : (plot.model.paused ? qsTr("Paused") : "")
        }
    }

    ChartView {
        id: chart
        objectName: "plotChart"
        Layout.fillWidth: true
        Layout.preferredHeight: Math.max(BwSpacing.plotHeight, Window.height * BwSpacing.plotHeightShare)
        antialiasing: true
        backgroundColor: BwColours.surface
        plotAreaColor: BwColours.surfaceRaised
        backgroundRoundness: 0
        dropShadowEnabled: false
        margins.top: BwSpacing.xs
        margins.bottom: BwSpacing.xs
        margins.left: BwSpacing.xs
        margins.right: BwSpacing.xs
        legend.alignment: Qt.AlignBottom
        legend.labelColor: BwColours.text
        legend.font.pixelSize: BwFonts.small
        Accessible.role: Accessible.Chart
        Accessible.name: qsTr("Live plot")

        // Qt Charts 6.4 describes its value axis twice to the QML tools, and the second
        // description, under the older name ValuesAxis, hides the first: qmllint knows the axis
        // (and checks its properties) only by that name, which the engine registers for the very
        // same type. Neither tool knows QBrush, the type of an axis title's colour.
        ValuesAxis {
            id: timeAxis
            min: 0
            max: plot.model.windowSeconds
            reverse: true
            tickType: ValuesAxis.TicksDynamic
            tickAnchor: 0
            tickInterval: plot.tickStep(plot.model.windowSeconds)
            labelFormat: plot.labelFormat(tickInterval)
            titleText: qsTr("Seconds ago")
            titleFont.pixelSize: BwFonts.small
            labelsFont.pixelSize: BwFonts.small
            labelsColor: BwColours.textMuted
            // qmllint disable type
            titleBrush: BwColours.textMuted
            // qmllint enable type
            color: BwColours.border
            gridLineColor: BwColours.divider
        }
        ValuesAxis {
            id: leftAxis
            min: plot.model.leftMinimum
            max: plot.model.leftMaximum
            tickType: ValuesAxis.TicksDynamic
            tickAnchor: 0
            tickInterval: plot.tickStep(max - min)
            labelFormat: plot.labelFormat(tickInterval)
            titleText: plot.leftUnit
            titleFont.pixelSize: BwFonts.small
            labelsFont.pixelSize: BwFonts.small
            labelsColor: BwColours.textMuted
            // qmllint disable type
            titleBrush: BwColours.textMuted
            // qmllint enable type
            color: BwColours.border
            gridLineColor: BwColours.divider
        }
        ValuesAxis {
            id: rightAxis
            visible: plot.rightUnit.length > 0
            min: plot.model.rightMinimum
            max: plot.model.rightMaximum
            tickType: ValuesAxis.TicksDynamic
            tickAnchor: 0
            tickInterval: plot.tickStep(max - min)
            labelFormat: plot.labelFormat(tickInterval)
            titleText: plot.rightUnit
            titleFont.pixelSize: BwFonts.small
            labelsFont.pixelSize: BwFonts.small
            labelsColor: BwColours.textMuted
            // qmllint disable type
            titleBrush: BwColours.textMuted
            // qmllint enable type
            color: BwColours.border
            gridVisible: false
        }
    }
}
