#include "bench/suite.h"

#include <QProcess>

namespace {

// What a shell command says of a file, which it finds in "$1".
double said(const QString &command, const char *file)
{
    QProcess shell;
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-euc"), command, QStringLiteral("sh"), QLatin1String(file)});
    shell.waitForFinished();
    bool isNumber = false;
    const double number = shell.readAllStandardOutput().trimmed().toDouble(&isNumber);
    if (!isNumber)
        qFatal("%s: %s", file, shell.readAllStandardError().constData());
    return number;
}

QString bytesOfSections(const QString &names)
{
    return QStringLiteral("size -A -d \"$1\" | awk '$1 ~ /^\\.(%1)/ { sum += $2 } "
                          "END { print sum + 0 }'")
        .arg(names);
}

} // namespace

void benchPluginFile(const Report &report)
{
    const QString bytes = QStringLiteral("bytes");
    const struct
    {
        QString name;
        QString unit;
        QString command;
    } figures[] = {
        {QStringLiteral("stripped size"), bytes,
         QStringLiteral("file=$(mktemp); strip -o \"$file\" \"$1\"; stat -c %s \"$file\"; "
                        "rm \"$file\"")},
        {QStringLiteral("code"), bytes, bytesOfSections(QStringLiteral("text|plt|init|fini"))},
        {QStringLiteral("read-only data"), bytes, bytesOfSections(QStringLiteral("rodata"))},
        {QStringLiteral("relocated and writable data"), bytes,
         bytesOfSections(QStringLiteral("data|bss|got"))},
        {QStringLiteral("tables for exceptions"), bytes,
         bytesOfSections(QStringLiteral("eh_frame|gcc_except"))},
        {QStringLiteral("names"), bytes, bytesOfSections(QStringLiteral("dyn|gnu"))},
        {QStringLiteral("bytes of relocations"), bytes, bytesOfSections(QStringLiteral("rela"))},
        {QStringLiteral("relocations"), QStringLiteral("relocations"),
         QStringLiteral("readelf -rW \"$1\" | grep -c R_")},
        {QStringLiteral("exported symbols"), QStringLiteral("symbols"),
         QStringLiteral("nm -D --defined-only \"$1\" | wc -l")},
        {QStringLiteral("libraries"), QStringLiteral("libraries"),
         QStringLiteral("readelf -dW \"$1\" | grep -c NEEDED")},
    };
    for (const auto &figure : figures) {
        Comparison what;
        what.name = QStringLiteral("plugin, ") + figure.name;
        what.subject = QStringLiteral("in the module's file");
        what.baseline = QStringLiteral("in that of an empty plugin that links the same");
        what.unit = figure.unit;
        report(ratioOf(what, {said(figure.command, MODULE_FILE)},
                       {said(figure.command, EMPTY_PLUGIN)}));
    }
}
