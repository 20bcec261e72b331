#include "sandbox/controlcenter/options.h"

#include <QCommandLineParser>

namespace controlcenter {
namespace {

/** The options of the command line, described once for parsing and for the help. */
struct CommandLine
{
    QCommandLineOption plugin{QStringLiteral("plugin"), QStringLiteral("The module's file."),
                              QStringLiteral("path")};
    QCommandLineOption page{QStringLiteral("page"),
                            QStringLiteral("Open this page first, such as \"Speech to Text\"."),
                            QStringLiteral("name")};
    QCommandLineOption locale{QStringLiteral("locale"),
                              QStringLiteral("Language of the texts, such as zh_CN."),
                              QStringLiteral("name")};
    QCommandLineOption theme{QStringLiteral("theme"), QStringLiteral("\"light\" or \"dark\"."),
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
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Show this text.")};

    void addTo(QCommandLineParser &parser) const
    {
        parser.setApplicationDescription(
            QStringLiteral("A control center that runs the assistant's settings module."));
        parser.addOptions({plugin, page, locale, theme, tour, section, scale, fontSize, help});
    }
};

} // namespace

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

    const QString theme = parser.value(line.theme);
    options.dark = theme == QLatin1String("dark");
    bool scaleIsNumber = false;
    options.scale = parser.value(line.scale).toDouble(&scaleIsNumber);
    const bool fontSizeGiven = parser.isSet(line.fontSize);
    options.fontSize = parser.value(line.fontSize).toDouble();

    if (!parser.positionalArguments().isEmpty())
        options.error = QStringLiteral("Unexpected argument \"%1\".")
                            .arg(parser.positionalArguments().constFirst());
    else if (!options.dark && theme != QLatin1String("light"))
        options.error = QStringLiteral("Unknown theme \"%1\".").arg(theme);
    else if (!scaleIsNumber || options.scale < 0.5 || options.scale > 4)
        options.error = QStringLiteral("The scale must be a number from 0.5 to 4.");
    else if (fontSizeGiven && !(options.fontSize >= 6 && options.fontSize <= 40))
        options.error = QStringLiteral("The font size must be a number from 6 to 40.");
    else if (options.plugin.isEmpty() && !options.help)
        options.error = QStringLiteral("Which module? Give its file with --plugin.");
    return options;
}

QString helpText()
{
    QCommandLineParser parser;
    CommandLine().addTo(parser);
    return parser.helpText();
}

} // namespace controlcenter
