#include "tests/support/testprogram.h"

#include <QList>
#include <QMetaMethod>
#include <QVector>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

// The main() of test programs. It makes no application itself: the processes that it forks do.

namespace testsupport {

namespace {

QVector<TestClass> &testClasses()
{
    static QVector<TestClass> classes;
    return classes;
}

// One process: a class, and the arguments that are for it.
struct Job
{
    TestClass test;
    QVector<char *> arguments;

    int run()
    {
        int argc = arguments.size();
        arguments.append(nullptr);
        return test.run(argc, arguments.data());
    }
};

// Arguments that name a test function may name one of its data rows: "function:row".
bool names(const char *argument, const TestClass &test)
{
    const QByteArray function = QByteArray(argument).split(':').constFirst();
    return test.meta->indexOfMethod(function + "()") >= 0;
}

bool namesAny(const char *argument)
{
    for (const TestClass &test : qAsConst(testClasses()))
        if (names(argument, test))
            return true;
    return false;
}

QVector<QByteArray> testFunctions(const TestClass &test)
{
    static const QVector<QByteArray> surroundings = {"initTestCase", "cleanupTestCase", "init",
                                                     "cleanup"};
    QVector<QByteArray> functions;
    for (int i = test.meta->methodOffset(); i < test.meta->methodCount(); ++i) {
        const QMetaMethod method = test.meta->method(i);
        if (method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Private &&
            !method.name().endsWith("_data") && !surroundings.contains(method.name()))
            functions.append(method.name());
    }
    return functions;
}

QVector<Job> jobs(int argc, char **argv)
{
    static QList<QByteArray> kept; // what arguments point into
    QVector<char *> named;
    QVector<char *> others;
    bool listsFunctions = false;
    for (int i = 0; i < argc; ++i) {
        (i > 0 && namesAny(argv[i]) ? named : others).append(argv[i]);
        listsFunctions = listsFunctions || qstrcmp(argv[i], "-functions") == 0;
    }

    QVector<Job> jobs;
    for (const TestClass &test : qAsConst(testClasses())) {
        QVector<char *> functions;
        for (char *argument : qAsConst(named))
            if (names(argument, test))
                functions.append(argument);
        if (named.isEmpty() && test.isolation == TestClass::EachFunction && !listsFunctions)
            for (const QByteArray &function : testFunctions(test)) {
                kept.append(function);
                functions.append(kept.last().data());
            }
        if (functions.isEmpty() && named.isEmpty())
            jobs.append({test, others});
        else if (test.isolation == TestClass::WholeClass && !functions.isEmpty())
            jobs.append({test, others + functions});
        else
            for (char *function : qAsConst(functions))
                jobs.append({test, others + QVector<char *>{function}});
    }
    return jobs;
}

// Runs a job in a process that dies with this one, and returns how many tests failed.
int runForked(Job *job)
{
    fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::exit(job->run());
    }
    int status = 0;
    const char *name = job->test.meta->className();
    if (child < 0 || waitpid(child, &status, 0) != child) {
        perror(name);
        return 1;
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    printf("%s %s: ended by signal %d\n", name, job->arguments.last(), WTERMSIG(status));
    return 1;
}

} // namespace

bool addTestClass(const TestClass &test)
{
    testClasses().append(test);
    return true;
}

} // namespace testsupport

int main(int argc, char **argv)
{
    using namespace testsupport;

    QVector<Job> all = jobs(argc, argv);
    if (all.size() == 1)
        return all.first().run(); // here, where a debugger looks
    int failures = 0;
    for (Job &job : all)
        failures += runForked(&job);
    return all.isEmpty() ? 1 : qMin(failures, 127); // a process tells no more
}
