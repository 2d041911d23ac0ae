// The QML side in Qt Quick Test, on the application's real core with no pump (no window emits
// startScanning, so requests end at the link): every "cpp." controller and model module as the
// screens import it, and the screens' reusable parts (the quantity input, the tabs, the snackbar,
// the side panel's states, the pump-status texts).
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QtQuickTest>

#include <memory>

class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        communication::objects::registerProtocolObjectMetaTypes();
        mCore = std::make_unique<common::ApplicationCore>(*QCoreApplication::instance(),
                                                          QStringList{QStringLiteral("none")});
        engine->addImportPath(QStringLiteral("qrc:/"));
    }
    void cleanupTestCase() { mCore.reset(); }

private:
    std::unique_ptr<common::ApplicationCore> mCore;
};

QUICK_TEST_MAIN_WITH_SETUP(tst_ScreenParts, Setup)
#include "tst_ScreenParts.moc"
