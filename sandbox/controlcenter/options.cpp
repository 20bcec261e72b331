#include "sandbox/controlcenter/options.h"

#include <QCommandLineParser>

namespace controlcenter {
namespace {

// What is wrong with a number; empty when it is in its range.
QString outOfRange(const QString &what, double value, double least, double most)
{
    return value >= least && value <= most // and not "nan"
               ? QString()
               : QStringLiteral("The %1 must be a number from %2 to %3.")
                     .arg(what)
                     .arg(least)
                     .arg(most);
}

// The options of the command line, described once for parsing and for the help.
struct CommandLine
{
    QCommandLineOption plugin{QStringLiteral("plugin"), QStringLiteral("The module's file."),
                              QStringLiteral("path")};
    QCommandLineOption page{QStringLiteral("page"),
                            QStringLiteral("Open this page first, such as \"Speech to Text\"."),
                            QStringLiteral("name")};
    QCommandLineOption locale{
        QStringLiteral("locale"),
        QStringLiteral("Language of the texts: %1.").arg(locales().join(QStringLiteral(", "))),
        QStringLiteral("name")};
    QCommandLineOption theme{
        QStringLiteral("theme"),
        QStringLiteral("\"light\", \"dark\", or \"system\" for the desktop's."),
        QStringLiteral("name"), QStringLiteral("light")};
    QCommandLineOption tour{QStringLiteral("tour"),
                            QStringLiteral("Go through every page, check it, and write pictures."),
                            QStringLiteral("folder")};
    QCommandLineOption section{QStringLiteral("section"),
                               QStringLiteral("Only this section of the tour; may be repeated."),
                               QStringLiteral("name")};
    QCommandLineOption scale{QStringLiteral("scale"),
                             QStringLiteral("Picture pixels per window pixel, 0.5 to 4."),
                             QStringLiteral("factor"), QStringLiteral("1")};
    QCommandLineOption fontSize{QStringLiteral("font-size"),
                                QStringLiteral("Size of the texts in points, 6 to 40."),
                                QStringLiteral("points")};
    QCommandLineOption log{
        QStringLiteral("log"),
        QStringLiteral("Write the messages of Qt and the module to this file, and only them."),
        QStringLiteral("file")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Show this text.")};

    // How the window has its contact sheets drawn.
    QCommandLineOption looks = hidden(QStringLiteral("looks"));
    QCommandLineOption place = hidden(QStringLiteral("place"));

    static QCommandLineOption hidden(const QString &name)
    {
        QCommandLineOption option(name, QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        return option;
    }

    void addTo(QCommandLineParser &parser) const
    {
        parser.setApplicationDescription(
            QStringLiteral("A control center that runs the assistant's settings module."));
        parser.addOptions(
            {plugin, page, locale, theme, tour, section, scale, fontSize, log, help, looks, place});
    }
};

} // namespace

const QStringList &locales()
{
    static const QStringList all = {QStringLiteral("zh_CN"), QStringLiteral("zh_HK"),
                                    QStringLiteral("zh_TW"), QStringLiteral("bo_CN"),
                                    QStringLiteral("ug_CN"), QStringLiteral("en_US"),
                                    QStringLiteral("en_GB")};
    return all;
}

Options parseOptions(const QStringList &arguments)
{
    const CommandLine line;
    QCommandLineParser parser;
    line.addTo(parser);

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    options.help = parser.isSet(line.help);
    options.plugin = parser.value(line.plugin);
    options.page = parser.value(line.page);
    options.locale = parser.value(line.locale);
    options.tour = parser.value(line.tour);
    options.sections = parser.values(line.section);
    options.looks = parser.value(line.looks);
    options.places = parser.values(line.place);
    options.log = parser.value(line.log);

    const QStringList themes = {QStringLiteral("light"), QStringLiteral("dark"),
                                QStringLiteral("system")};
    options.theme = parser.value(line.theme);
    options.scale = parser.value(line.scale).toDouble();
    options.fontSize = parser.value(line.fontSize).toDouble();

    if (!parser.positionalArguments().isEmpty())
        options.error = QStringLiteral("Unexpected argument \"%1\".")
                            .arg(parser.positionalArguments().constFirst());
    else if (!themes.contains(options.theme))
        options.error = noSuch(QStringLiteral("theme"), options.theme, themes);
    else if (parser.isSet(line.locale) && !locales().contains(options.locale))
        options.error = noSuch(QStringLiteral("locale"), options.locale, locales());
    else if (!options.sections.isEmpty() && options.tour.isEmpty())
        options.error = QStringLiteral("--section is for a tour and needs --tour DIR");
    else if (options.plugin.isEmpty() && !options.help)
        options.error = QStringLiteral("Which module? Give its file with --plugin.");
    if (options.error.isEmpty())
        options.error = outOfRange(QStringLiteral("scale"), options.scale, 0.5, 4);
    if (options.error.isEmpty() && parser.isSet(line.fontSize))
        options.error = outOfRange(QStringLiteral("font size"), options.fontSize, 6, 40);
    return options;
}

QString noSuch(const QString &what, const QString &name, const QStringList &existing)
{
    return QStringLiteral("There is no %1 \"%2\", but %3.")
        .arg(what, name, existing.join(QStringLiteral(", ")));
}

QString helpText()
{
    QCommandLineParser parser;
    CommandLine().addTo(parser);
    return parser.helpText();
}

} // namespace controlcenter
