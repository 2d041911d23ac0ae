// Saves a picture of every page, tab and overlay of the application, as a technician sees it
// against the pump simulator, at the smallest window (960 × 540) and at 1920 × 1080.
// Usage: screenshots OUTPUT_FOLDER
#include "tests/support/ScreenDriver.h"

#include <QApplication>
#include <QDir>
#include <QQuickItem>

#include <cstdio>

using testsupport::ScreenDriver;

namespace {

struct Size {
    int width;
    int height;
    const char* suffix;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: screenshots OUTPUT_FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));

    // A pump that reports another firmware version shows the version warning on its tab.
    ScreenDriver app({QStringLiteral("--seed"), QStringLiteral("7")});
    QString error;
    if (!app.start(error)) {
        std::fprintf(stderr, "screenshots: %s\n", qPrintable(error));
        return 1;
    }
    const Size sizes[] = {{960, 540, "960x540"}, {1920, 1080, "1920x1080"}};
    int saved = 0;
    const auto shot = [&](const QString& name) {
        for (const Size& size : sizes) {
            app.resize(size.width, size.height);
            const QString path =
                folder.filePath(QStringLiteral("%1-%2.png").arg(name, QLatin1String(size.suffix)));
            if (app.grab(path)) {
                ++saved;
            } else {
                std::fprintf(stderr, "screenshots: could not save %s\n", qPrintable(path));
            }
        }
        app.resize(sizes[0].width, sizes[0].height);
    };

    ScreenDriver::wait(1000); // connected: the page before the main screen
    shot(QStringLiteral("connected"));
    if (!app.waitForMainScreen()) {
        std::fprintf(stderr, "screenshots: the main screen did not show\n");
        return 1;
    }
    app.simulator(QStringLiteral("input voltage 6500"));
    ScreenDriver::wait(1500); // readings in
    shot(QStringLiteral("control-fixed-speed"));

    app.simulator(QStringLiteral("fault 5"));
    app.simulator(QStringLiteral("cover open"));
    ScreenDriver::wait(1500);
    shot(QStringLiteral("status-fault"));
    app.click(QStringLiteral("clearFaultsButton"));
    app.simulator(QStringLiteral("cover close"));
    ScreenDriver::wait(1000);

    // The speed plot while the pump speeds up, and the filter plot of the voltage input.
    app.type(QStringLiteral("applicationSpeedInput"), QStringLiteral("150"));
    ScreenDriver::wait(6000);
    app.reveal(QStringLiteral("speedPlotBox"));
    shot(QStringLiteral("control-speed-plot"));
    app.click(QStringLiteral("controlInputChooser"));
    ScreenDriver::wait(300);
    app.click(QStringLiteral("option_Voltage"));
    ScreenDriver::wait(1000);
    app.simulator(QStringLiteral("input voltage 4000"));
    ScreenDriver::wait(2500);
    app.simulator(QStringLiteral("input voltage 7000"));
    ScreenDriver::wait(2500);
    app.reveal(QStringLiteral("voltageFilterPlot"));
    shot(QStringLiteral("control-filter-plot"));

    app.click(QStringLiteral("linkHealthStrip"));
    ScreenDriver::wait(500);
    shot(QStringLiteral("link-health"));
    app.click(QStringLiteral("overlayCancel"));

    app.click(QStringLiteral("testFaultsButton"));
    app.click(QStringLiteral("overlayConfirm"));
    ScreenDriver::wait(500);
    shot(QStringLiteral("control-test-faults"));
    app.click(QStringLiteral("overlayCancel"));

    app.click(QStringLiteral("collapseButton"));
    ScreenDriver::wait(300);
    shot(QStringLiteral("status-collapsed"));
    app.click(QStringLiteral("collapseButton"));

    app.click(QStringLiteral("tab1"));
    ScreenDriver::wait(500);
    shot(QStringLiteral("setup"));
    app.click(QStringLiteral("tab2"));
    ScreenDriver::wait(1500); // the log read
    shot(QStringLiteral("maintenance"));
    app.click(QStringLiteral("clearLogButton"));
    ScreenDriver::wait(300);
    shot(QStringLiteral("maintenance-clear-log"));
    app.click(QStringLiteral("overlayCancel"));
    app.click(QStringLiteral("pumpInformationButton"));
    ScreenDriver::wait(300);
    shot(QStringLiteral("pump-information"));
    app.click(QStringLiteral("overlayCancel"));
    app.click(QStringLiteral("aboutButton"));
    ScreenDriver::wait(300);
    shot(QStringLiteral("about"));

    std::printf("screenshots: %d pictures in %s\n", saved, qPrintable(folder.absolutePath()));
    return 0;
}
