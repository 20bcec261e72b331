#pragma once

#include <QCoreApplication>
#include <QMetaMethod>
#include <QProcess>
#include <QTest>
#include <QTextStream>

namespace testsupport {

/**
 * Runs each test function of a class in a process of its own, for tests of objects that a process
 * has once. Called with the name of a function, the program runs just that one.
 */
inline int runIsolated(QObject *test, int argc, char **argv)
{
    const QStringList arguments = QCoreApplication::arguments();
    for (int i = 1; i < arguments.size(); ++i)
        if (!arguments.at(i).startsWith(QLatin1Char('-')))
            return QTest::qExec(test, argc, argv);

    const QStringList surroundings = {QStringLiteral("initTestCase"),
                                      QStringLiteral("cleanupTestCase"), QStringLiteral("init"),
                                      QStringLiteral("cleanup")};
    QStringList failed;
    int run = 0;
    const QMetaObject *meta = test->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        const QString name = QString::fromLatin1(method.name());
        if (method.methodType() != QMetaMethod::Slot || method.access() != QMetaMethod::Private ||
            name.endsWith(QLatin1String("_data")) || surroundings.contains(name))
            continue;
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      arguments.mid(1) + QStringList(name));
        // No limit here: the whole program has one.
        const bool finished = process.waitForFinished(-1);
        if (!finished || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            failed << name;
        ++run;
    }
    QTextStream(stdout) << run << " processes, failed: "
                        << (failed.isEmpty() ? QStringLiteral("none")
                                             : failed.join(QLatin1String(", ")))
                        << '\n';
    return failed.isEmpty() && run > 0 ? 0 : 1;
}

} // namespace testsupport

/** main() of a test whose functions each get a process; before any of them, PREPARE is run. */
#define ISOLATED_TEST_MAIN(Application, TestClass, PREPARE)                                        \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        Application app(argc, argv);                                                               \
        PREPARE;                                                                                   \
        TestClass test;                                                                            \
        return testsupport::runIsolated(&test, argc, argv);                                        \
    }
