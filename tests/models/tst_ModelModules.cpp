// The five "cpp." model modules as the screens import them, on the application's real core:
// a registration, module or type mistake fails here rather than on a screen.
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QtQuickTest>

#include <memory>

class ModelModulesSetup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable() {
        communication::objects::registerProtocolObjectMetaTypes();
        // No window emits startScanning, so no pump is ever found: requests end at the link.
        mCore =
            std::make_unique<common::ApplicationCore>(*QCoreApplication::instance(), QStringList{});
    }
    void qmlEngineAvailable(QQmlEngine* engine) { engine->addImportPath(QStringLiteral("qrc:/")); }
    void cleanupTestCase() { mCore.reset(); }

private:
    std::unique_ptr<common::ApplicationCore> mCore;
};

QUICK_TEST_MAIN_WITH_SETUP(ModelModules, ModelModulesSetup)
#include "tst_ModelModules.moc"
