#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QDebug>
#include <QList>
#include <QMap>

// What is fuzzed: each target takes any bytes, gives the module what they stand for, and compares
// what it does with a plain implementation of what is documented. The fuzzer (fuzzer.cpp) makes the
// bytes up; the test fuzzseeds (seedreplay.cpp) takes those in seeds/.

namespace fuzz {

/** Ends the program when the module does not do with @p input what it should. */
using Target = void (*)(const QByteArray &input);

/** All targets by name. */
QMap<QByteArray, Target> &targets();

/** Before the first input: keeps away from buses, and from now on counts what is logged. */
void prepare();

/** Critical log lines since the last call. */
int takeCriticals();

/** What services answer to the next calls that somebody waits for; to all others, an error. */
void setAnswers(const QList<QDBusMessage> &answers);
QDBusMessage reply(const QVariantList &values);
QDBusMessage errorReply();

/** Ends the program, with both values, when they differ. */
template <typename T>
void expectEqual(const char *what, const T &actual, const T &expected)
{
    if (actual == expected)
        return;
    QString difference;
    QDebug(&difference) << actual << "instead of" << expected;
    qFatal("%s: %s", what, qPrintable(difference));
}

inline void expect(const char *what, bool condition)
{
    expectEqual(what, condition, true);
}

} // namespace fuzz

/** Defines the target NAME, a function of @c input. */
#define FUZZ_TARGET(NAME)                                                                          \
    static void NAME##Target(const QByteArray &input);                                             \
    static const auto NAME##Added = fuzz::targets().insert(#NAME, NAME##Target);                   \
    static void NAME##Target(const QByteArray &input)
