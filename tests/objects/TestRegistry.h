#pragma once

#include <QObject>

#include <functional>
#include <vector>

namespace objectstest {

/// Each test file registers its test classes here; main runs them all and fails if any fails.
using TestFactory = std::function<QObject*()>;
std::vector<TestFactory>& testFactories();

template <typename Test>
struct RegisterTest {
    RegisterTest() {
        testFactories().push_back([] { return new Test; });
    }
};

} // namespace objectstest

#define OBJECTS_TEST(Class) static const objectstest::RegisterTest<Class> registered##Class;
