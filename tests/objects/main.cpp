#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "TestRegistry.h"

#include <QCoreApplication>
#include <QTest>

#include <memory>

namespace objectstest {

std::vector<TestFactory>& testFactories() {
    static std::vector<TestFactory> factories;
    return factories;
}

} // namespace objectstest

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    communication::objects::registerProtocolObjectMetaTypes();
    int failures = 0;
    for (const auto& factory : objectstest::testFactories()) {
        std::unique_ptr<QObject> test(factory());
        failures += QTest::qExec(test.get(), argc, argv);
    }
    return failures == 0 ? 0 : 1;
}
