#pragma once

#include <QObject>
#include <QString>

class QSocketNotifier;

namespace simulator {

class PumpSimulator;

/// Console commands on standard input, one a line, to make a demo lively: open the cover, raise
/// a fault, heat the pump up, drive the inputs. Answers go to standard output.
class Console : public QObject {
    Q_OBJECT

public:
    explicit Console(PumpSimulator& simulator, QObject* parent = nullptr);

    /// Starts reading standard input.
    void start();
    /// Runs one command line and returns the answer.
    QString execute(const QString& line);

    static QString helpText();

signals:
    void quitRequested();

private:
    void readInput();

    PumpSimulator& mSimulator;
    QSocketNotifier* mNotifier = nullptr;
    QByteArray mPartialLine;
};

} // namespace simulator
