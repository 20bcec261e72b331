#pragma once

#include "tests/support/serviceprocess.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QTest>

namespace testsupport {

/** What a run of the doctor came to. */
struct Run
{
    int exitCode = -1; // not ended in order
    QByteArray output;
    QByteArray error;
    qint64 milliseconds = 0;

    QJsonArray checks() const
    {
        return QJsonDocument::fromJson(output).object().value(QStringLiteral("checks")).toArray();
    }

    /** "STATUS: FINDING", a line for each of the checks of this name and subject. */
    QString of(const QString &check, const QString &subject = QString()) const
    {
        QStringList lines;
        const QJsonArray all = checks();
        for (const QJsonValue &value : all) {
            const QJsonObject finding = value.toObject();
            if (finding.value(QStringLiteral("check")) == check &&
                (subject.isNull() || finding.value(QStringLiteral("subject")) == subject))
                lines.append(finding.value(QStringLiteral("status")).toString() +
                             QStringLiteral(": ") +
                             finding.value(QStringLiteral("finding")).toString());
        }
        return lines.join(QLatin1Char('\n'));
    }

    /** The checks with this status, each "CHECK SUBJECT". */
    QStringList having(const QString &status) const
    {
        QStringList names;
        const QJsonArray all = checks();
        for (const QJsonValue &value : all) {
            const QJsonObject finding = value.toObject();
            if (finding.value(QStringLiteral("status")) == status)
                names.append(finding.value(QStringLiteral("check")).toString() + QLatin1Char(' ') +
                             finding.value(QStringLiteral("subject")).toString());
        }
        return names;
    }
};

using Environment = QMap<QString, QString>;

inline Run run(const QStringList &command, const Environment &environment = {})
{
    constexpr int endLimitMs = 20000;
    ChildProcess program;
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    for (auto it = environment.cbegin(); it != environment.cend(); ++it)
        all.insert(it.key(), it.value());
    program.setProcessEnvironment(all);
    Run result;
    QElapsedTimer clock;
    clock.start();
    program.start(command.first(), command.mid(1));
    // Services of this process answer meanwhile.
    const bool ended =
        QTest::qWaitFor([&] { return program.state() == QProcess::NotRunning; }, endLimitMs);
    result.milliseconds = clock.elapsed();
    if (ended && program.exitStatus() == QProcess::NormalExit)
        result.exitCode = program.exitCode();
    result.output = program.readAllStandardOutput();
    result.error = program.readAllStandardError();
    return result;
}

inline Run runDoctor(const QStringList &arguments, const Environment &environment = {})
{
    return run(QStringList{QStringLiteral(DOCTOR)} + arguments, environment);
}

/** With the built module, and a report that can be read. */
inline Run examine(const Environment &environment = {})
{
    return runDoctor(
        {QStringLiteral("--json"), QStringLiteral("--plugin"), QStringLiteral(MODULE_FILE)},
        environment);
}

/** A file of the project. */
inline QString textOf(const char *file)
{
    QFile opened(QStringLiteral(SOURCE_ROOT "/") + QLatin1String(file));
    return opened.open(QIODevice::ReadOnly) ? QString::fromUtf8(opened.readAll()) : QString();
}

/** The contract of an interface, without what stands around it. */
inline QString contract(const QString &interface)
{
    QFile file(QStringLiteral(SOURCE_ROOT "/contracts/%1.xml").arg(interface));
    file.open(QIODevice::ReadOnly);
    const QString xml = QString::fromUtf8(file.readAll());
    return xml.mid(xml.indexOf(QLatin1String("<interface"))).remove(QLatin1String("</node>"));
}

} // namespace testsupport
