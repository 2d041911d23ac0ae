#pragma once

#include "SimulatorProcess.h"

#include <QPoint>
#include <QQmlApplicationEngine>
#include <QString>
#include <QStringList>

#include <memory>

class QQuickItem;
class QQuickWindow;

namespace common {
class ApplicationCore;
}

namespace testsupport {

/// The real application, its core and its screens, in this process, against the real
/// pump-simulator executable on a pseudo-terminal: what a technician sees, driven as they would
/// drive it. Items are found by objectName; clicks and keys go to the window as events.
class ScreenDriver {
public:
    /// `simulatorArguments` come after "--pty"; the simulator's console stays open for
    /// simulator().
    explicit ScreenDriver(const QStringList& simulatorArguments = {});
    ~ScreenDriver();
    ScreenDriver(const ScreenDriver&) = delete;
    ScreenDriver& operator=(const ScreenDriver&) = delete;

    /// Starts the simulator, the core and the window; false with `error` set if any fails.
    bool start(QString& error);
    /// Waits (events running) until the main screen shows, at most `timeoutMs`.
    bool waitForMainScreen(int timeoutMs = 10000);

    QQuickWindow& window() const { return *mWindow; }
    /// The visible item with this objectName, or nullptr.
    QQuickItem* find(const QString& objectName) const;
    /// Scrolls the item into view, as a user would; false when it is not there or not visible.
    bool reveal(const QString& objectName);
    /// Clicks the middle of the item; false when it is not there or not visible.
    bool click(const QString& objectName);
    /// Gives the item (a QuantityInput or text field) focus, selects its text, types `text`
    /// and presses Enter.
    bool type(const QString& objectName, const QString& text);
    /// Runs events for `milliseconds`.
    static void wait(int milliseconds);

    /// Sends one console command to the simulator and returns its answer lines.
    QStringList simulator(const QString& command, int timeoutMs = 3000);
    /// Saves what the window shows now at its present size.
    bool grab(const QString& path);
    /// Resizes the window and lets it lay out again.
    void resize(int width, int height);

private:
    SimulatorProcess mSimulator;
    QStringList mArguments;
    std::unique_ptr<common::ApplicationCore> mCore;
    std::unique_ptr<QQmlApplicationEngine> mEngine;
    QQuickWindow* mWindow = nullptr;
};

} // namespace testsupport
