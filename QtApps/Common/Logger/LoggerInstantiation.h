#pragma once

#include <QObject>
#include <QString>

namespace logger {

/// Sets the logging up for the application: exports "APPNAME" for the properties file, reads
/// "log4qt.properties" beside the executable if there is one (and watches it), and logs the start
/// and the stop of the program.
class LoggerInstantiation final : public QObject {
    Q_OBJECT

public:
    static constexpr const char* kPropertiesFileName = "log4qt.properties";

    explicit LoggerInstantiation(const QString& applicationName, QObject* parent = nullptr);

public slots:
    void onApplicationExit();

private:
    void LogStartup();

    QString mApplicationName;
};

} // namespace logger
