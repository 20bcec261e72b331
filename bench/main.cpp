#include "bench/suite.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTextStream>

#include <fcntl.h>
#include <unistd.h>

#include <memory>
#include <vector>

// Prints one line per comparison: the ratio of this run, its range over the rounds, its aim, and
// what both sides took. Ratios of one run can be compared between machines; the absolute figures
// cannot.

namespace {

QJsonObject toJson(const Ratio &ratio)
{
    return {{QStringLiteral("name"), ratio.what.name},
            {QStringLiteral("subject"), ratio.what.subject},
            {QStringLiteral("baseline"), ratio.what.baseline},
            {QStringLiteral("unit"), ratio.what.unit},
            {QStringLiteral("aim"), ratio.what.aim},
            {QStringLiteral("median"), ratio.median},
            {QStringLiteral("lowest"), ratio.lowest},
            {QStringLiteral("highest"), ratio.highest},
            {QStringLiteral("subjectMedian"), ratio.subject},
            {QStringLiteral("baselineMedian"), ratio.baseline}};
}

// Three digits, or all of a large number.
QString figure(double value)
{
    return value < 1000 ? QString::number(value, 'g', 3) : QString::number(qRound64(value));
}

QString line(const Ratio &ratio)
{
    const QString aim = ratio.what.aim > 0.0
                            ? QStringLiteral("%1 %2")
                                  .arg(ratio.what.aim, 0, 'f', 1)
                                  .arg(ratio.missed() ? QStringLiteral("MISSED") : QString())
                            : QString();
    return QStringLiteral("%1 %2 %3  %4: %5, against %6 (%7 against %8 %9)")
        .arg(ratio.median, 8, 'f', 3)
        .arg(QStringLiteral("%1 to %2").arg(ratio.lowest, 0, 'f', 3).arg(ratio.highest, 0, 'f', 3),
             -19)
        .arg(aim, -10)
        .arg(ratio.what.name, ratio.what.subject, ratio.what.baseline)
        .arg(figure(ratio.subject), figure(ratio.baseline), ratio.what.unit);
}

// Sound libraries write there whatever they like. Returns a copy of standard error for our own
// words.
int silenceStandardError()
{
    const int copy = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
    const int nothing = open(qPrintable(QProcess::nullDevice()), O_WRONLY | O_CLOEXEC);
    dup2(nothing, STDERR_FILENO);
    close(nothing);
    return copy;
}

} // namespace

int main(int argc, char *argv[])
{
    // The module's log would be measured too.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);

    using testsupport::ServiceProcess;
    ServiceProcess assistant(QStringLiteral("assistant"));
    const QVector<QPair<QString, std::function<void(const Report &)>>> parts = {
        {QStringLiteral("pages"), benchPages},
        {QStringLiteral("writes"),
         [&](const Report &report) {
             benchWrites(report, assistant);
         }},
        {QStringLiteral("load"), benchLoad},
        {QStringLiteral("coldstart"), benchColdStart},
        {QStringLiteral("wave"), benchWave},
        {QStringLiteral("level"), benchLevel},
        {QStringLiteral("merge"), benchMerge},
        {QStringLiteral("pluginfile"), benchPluginFile},
        {QStringLiteral("idle"), benchIdle},
        {QStringLiteral("firstblock"), benchFirstBlock},
        {QStringLiteral("memory"), benchMemory},
        {QStringLiteral("voicetest"), benchVoiceTest},
    };
    QStringList names;
    for (const auto &part : parts)
        names << part.first;

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures the module against bare ways of doing the same."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Also write the ratios to FILE."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption only(
        QStringLiteral("only"),
        QStringLiteral("Run one part: %1.").arg(names.join(QStringLiteral(", "))),
        QStringLiteral("PART"));
    const QCommandLineOption rounds(
        QStringLiteral("rounds"),
        QStringLiteral("Measure every comparison N times; each has its own number otherwise."),
        QStringLiteral("N"));
    parser.addOptions({json, only, rounds});
    parser.addHelpOption();
    parser.process(application);

    QTextStream err(stderr);
    if (parser.isSet(only) && !names.contains(parser.value(only))) {
        err << "--only knows: " << names.join(QStringLiteral(", ")) << '\n';
        return 2;
    }
    if (parser.isSet(rounds)) {
        const int count = parser.value(rounds).toInt();
        if (count < 1) {
            err << "--rounds needs a number from 1 on\n";
            return 2;
        }
        setRounds(count);
    }

    QFile problems;
    problems.open(silenceStandardError(), QIODevice::WriteOnly, QFileDevice::AutoCloseHandle);
    err.setDevice(&problems);
    testsupport::VirtualMicrophone microphone;
    if (!microphone.start(QStringLiteral("speech"))) {
        err << "no virtual microphone\n";
        return 1;
    }
    std::vector<std::unique_ptr<ServiceProcess>> others;
    std::vector<ServiceProcess *> services = {&assistant};
    for (const char *name : {"dock", "keybinding", "networkmanager", "aiservice"}) {
        others.push_back(std::make_unique<ServiceProcess>(QLatin1String(name)));
        services.push_back(others.back().get());
    }
    for (ServiceProcess *service : services) {
        if (!service->start()) {
            err << "a service does not start\n";
            return 1;
        }
    }

    QTextStream out(stdout);
    out << QStringLiteral("%1 %2 %3  %4\n")
               .arg(QStringLiteral("ratio"), 8)
               .arg(QStringLiteral("range"), -19)
               .arg(QStringLiteral("at most"), -10)
               .arg(QStringLiteral("what"));
    QJsonArray all;
    QStringList missed;
    for (const auto &part : parts) {
        if (parser.isSet(only) && parser.value(only) != part.first)
            continue;
        part.second([&](const Ratio &ratio) {
            out << line(ratio) << '\n';
            out.flush();
            all.append(toJson(ratio));
            if (ratio.missed())
                missed << ratio.what.name;
        });
    }
    out << all.size() << " lines, " << missed.size() << " above their aim"
        << (missed.isEmpty() ? QString() : QStringLiteral(": ") + missed.join(QStringLiteral(", ")))
        << '\n';

    if (parser.isSet(json)) {
        QFile file(parser.value(json));
        if (!file.open(QIODevice::WriteOnly)) {
            err << file.fileName() << ": " << file.errorString() << '\n';
            return 1;
        }
        file.write(QJsonDocument(all).toJson());
    }
    return 0;
}
