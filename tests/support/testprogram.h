#pragma once

#include <QTest>

namespace testsupport {

/** A test class as part of its program; added with TEST_CLASS or ISOLATED_TEST_CLASS. */
struct TestClass
{
    /** What gets a process of its own. */
    enum Isolation { WholeClass, EachFunction };

    const QMetaObject *meta;
    int (*run)(int &argc, char **argv); ///< Runs it like QTest::qExec, with an application.
    Isolation isolation;
};

/** For test classes that need no application, or make one themselves. */
struct NoApplication
{
    NoApplication(int &, char **) {}
};

/** Hands @p test to the program's main(), which tests/support/testprogram.cpp holds. */
bool addTestClass(const TestClass &test);

} // namespace testsupport

#define ADD_TEST_CLASS(Application, Class, PREPARE, isolation)                                     \
    static const bool added##Class =                                                               \
        testsupport::addTestClass({&Class::staticMetaObject,                                       \
                                   [](int &argc, char **argv) {                                    \
                                       const Application application(argc, argv);                  \
                                       PREPARE;                                                    \
                                       Class test;                                                 \
                                       return QTest::qExec(&test, argc, argv);                     \
                                   },                                                              \
                                   testsupport::TestClass::isolation});

/**
 * Adds a test class to its program. A program may have several; each is run in a process of its own
 * with a new @p Application (QApplication, QCoreApplication or testsupport::NoApplication), so that
 * none sees what another one left behind.
 *
 * Named on the command line, a test function runs alone, whichever class it belongs to.
 */
#define TEST_CLASS(Application, Class) ADD_TEST_CLASS(Application, Class, , WholeClass)

/**
 * The same for tests of what a process has once: each function gets a process of its own, and
 * before it, PREPARE is run.
 */
#define ISOLATED_TEST_CLASS(Application, Class, PREPARE)                                           \
    ADD_TEST_CLASS(Application, Class, PREPARE, EachFunction)
