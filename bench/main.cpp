#include "bench/suite.h"
#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <memory>
#include <vector>

// Prints one line per comparison: the ratio of this run, its range over the rounds, and what both
// sides took. Ratios of one run can be compared between machines; the absolute figures cannot.

namespace {

QJsonObject toJson(const Ratio &ratio)
{
    return {
        {QStringLiteral("name"), ratio.name},         {QStringLiteral("subject"), ratio.subject},
        {QStringLiteral("baseline"), ratio.baseline}, {QStringLiteral("median"), ratio.median},
        {QStringLiteral("lowest"), ratio.lowest},     {QStringLiteral("highest"), ratio.highest},
        {QStringLiteral("note"), ratio.note}};
}

} // namespace

int main(int argc, char *argv[])
{
    // The module's log would be measured too, and drown the table.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures the module against bare ways of doing the same."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Also write the ratios to FILE."),
                                  QStringLiteral("FILE"));
    QCommandLineOption timeLoad(QStringLiteral("time-load"), QString(), QStringLiteral("PLUGIN"));
    timeLoad.setFlags(QCommandLineOption::HiddenFromHelp); // for the program's own use
    const QCommandLineOption only(
        QStringLiteral("only"),
        QStringLiteral("Run one part: pages, wave, level, merge, load or voicetest."),
        QStringLiteral("PART"));
    const QCommandLineOption rounds(
        QStringLiteral("rounds"),
        QStringLiteral("Measure every comparison N times; each has its own number otherwise."),
        QStringLiteral("N"));
    parser.addOptions({json, only, rounds, timeLoad});
    parser.addHelpOption();
    parser.process(application);

    if (parser.isSet(timeLoad)) {
        QTextStream(stdout) << timeLoadMs(parser.value(timeLoad)) << '\n';
        return 0;
    }

    QTextStream err(stderr);
    if (parser.isSet(rounds)) {
        const int count = parser.value(rounds).toInt();
        if (count < 1) {
            err << "--rounds needs a number from 1 on\n";
            return 2;
        }
        setRounds(count);
    }
    testsupport::VirtualMicrophone microphone;
    if (!microphone.start(QStringLiteral("speech"))) {
        err << "no virtual microphone\n";
        return 1;
    }
    std::vector<std::unique_ptr<testsupport::ServiceProcess>> services;
    for (const char *name : {"assistant", "dock", "keybinding", "networkmanager", "aiservice"}) {
        services.emplace_back(new testsupport::ServiceProcess(QLatin1String(name)));
        if (!services.back()->start()) {
            err << "sandbox-" << name << " does not start\n";
            return 1;
        }
    }

    QTextStream out(stdout);
    out << QStringLiteral("%1 %2  %3\n")
               .arg(QStringLiteral("ratio"), 8)
               .arg(QStringLiteral("range"), -19)
               .arg(QStringLiteral("what"));
    QJsonArray all;
    const QVector<QPair<QString, QVector<Ratio> (*)()>> parts = {
        {QStringLiteral("pages"), benchPages}, {QStringLiteral("wave"), benchWave},
        {QStringLiteral("level"), benchLevel}, {QStringLiteral("merge"), benchMerge},
        {QStringLiteral("load"), benchLoad},   {QStringLiteral("voicetest"), benchVoiceTest}};
    for (const auto &part : parts) {
        if (parser.isSet(only) && parser.value(only) != part.first)
            continue;
        for (const Ratio &ratio : part.second()) {
            out << QStringLiteral("%1 %2  %3: %4, against %5 (%6)\n")
                       .arg(ratio.median, 8, 'f', 3)
                       .arg(QStringLiteral("%1 to %2")
                                .arg(ratio.lowest, 0, 'f', 3)
                                .arg(ratio.highest, 0, 'f', 3),
                            -19)
                       .arg(ratio.name, ratio.subject, ratio.baseline, ratio.note);
            out.flush();
            all.append(toJson(ratio));
        }
    }

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
