#pragma once

#include <QJSEngine>
#include <QPointer>
#include <QtGlobal>

class QQmlEngine;

namespace communication {

/// The boundary between the screens and the core: a controller or model that the screens reach
/// as the singleton of its "cpp.<Type>" module. The class declares QML_ELEMENT and QML_SINGLETON
/// and derives from QmlSingleton<Type>; the registry that builds it publishes the instance, and
/// the QML engine's create() hands out exactly that instance, which stays the registry's.
/// Because the modules are real QML modules, qmllint and the QML compiler know every property,
/// slot and signal the screens use.
template <typename Type>
class QmlSingleton {
public:
    /// Called by the QML engine the first time a screen uses the type.
    static Type* create(QQmlEngine* /*engine*/, QJSEngine* /*scriptEngine*/) {
        Type* instance = published();
        if (instance == nullptr) {
            // A programming error (a test that forgot to build the registry): the screens then
            // see an undefined singleton and say so in their own warnings.
            qCritical("No %s has been published for the screens",
                      Type::staticMetaObject.className());
            return nullptr;
        }
        QJSEngine::setObjectOwnership(instance, QJSEngine::CppOwnership);
        return instance;
    }

    /// Makes `instance` the one the screens get; the registry calls it once it has built it.
    static void publish(Type* instance) { publishedInstance() = instance; }
    static Type* published() { return publishedInstance().data(); }

private:
    // Cleared by itself when the instance goes (at shutdown, or at the end of a test).
    static QPointer<Type>& publishedInstance() {
        static QPointer<Type> instance;
        return instance;
    }
};

} // namespace communication
