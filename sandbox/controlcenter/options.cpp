#include "sandbox/controlcenter/options.h"

#include "sandbox/controlcenter/themechoice.h"

#include <QCommandLineParser>

namespace controlcenter {
namespace {

const struct
{
    const char *locale;
    const char *name; // in that language
} languages[] = {
    {"zh_CN", "简体中文"}, {"zh_HK", "中文（香港）"}, {"zh_TW", "中文（台灣）"}, {"bo_CN", "བོད་ཡིག"},
    {"ug_CN", "ئۇيغۇرچە"}, {"en_US", "English (US)"}, {"en_GB", "English (UK)"},
};

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
        QStringLiteral(
            "\"light\", \"dark\", \"contrast\", or \"system\" for the desktop's; without "
            "it the one that was chosen last in the window."),
        QStringLiteral("name")};
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

    // How the window has its contact sheets drawn, and itself run again in another language.
    QCommandLineOption looks = hidden(QStringLiteral("looks"));
    QCommandLineOption place = hidden(QStringLiteral("place"));
    QCommandLineOption textPercent = hidden(QStringLiteral("text-percent"));
    QCommandLineOption direction = hidden(QStringLiteral("direction"));
    QCommandLineOption world = hidden(QStringLiteral("world"));
    QCommandLineOption geometry = hidden(QStringLiteral("geometry"));

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
        parser.addOptions({plugin, page, locale, theme, tour, section, scale, fontSize, log, help});
        parser.addOptions({looks, place, textPercent, direction, world, geometry});
    }
};

} // namespace

const QStringList &locales()
{
    static const QStringList all = [] {
        QStringList names;
        for (const auto &language : languages)
            names.append(QLatin1String(language.locale));
        return names;
    }();
    return all;
}

QString languageName(const QString &locale)
{
    for (const auto &language : languages)
        if (locale == QLatin1String(language.locale))
            return QString::fromUtf8(language.name);
    return locale;
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
    options.world = parser.value(line.world);
    options.direction = Direction(parser.value(line.direction).toInt());
    if (parser.isSet(line.textPercent))
        options.textPercent = parser.value(line.textPercent).toInt();
    const QStringList sides = parser.value(line.geometry).split(QLatin1Char(','));
    if (sides.size() == 4)
        options.geometry = {sides.at(0).toInt(), sides.at(1).toInt(), sides.at(2).toInt(),
                            sides.at(3).toInt()};

    const QStringList &themes = ThemeChoice::names();
    options.theme = parser.value(line.theme);
    if (options.theme.isEmpty() && !options.tour.isEmpty())
        options.theme = themes.constFirst(); // whatever whoever takes the pictures has chosen
    options.scale = parser.value(line.scale).toDouble();
    options.fontSize = parser.value(line.fontSize).toDouble();

    if (!parser.positionalArguments().isEmpty())
        options.error = QStringLiteral("Unexpected argument \"%1\".")
                            .arg(parser.positionalArguments().constFirst());
    else if (parser.isSet(line.theme) && !themes.contains(options.theme))
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

QStringList argumentsFor(const Options &options)
{
    const CommandLine line;
    QStringList arguments;
    const auto add = [&](const QCommandLineOption &option, const QString &value) {
        if (!value.isEmpty())
            arguments.append(QStringLiteral("--%1=%2").arg(option.names().constLast(), value));
    };
    add(line.plugin, options.plugin);
    add(line.page, options.page);
    add(line.locale, options.locale);
    add(line.theme, options.theme);
    add(line.log, options.log);
    add(line.scale, QString::number(options.scale));
    if (options.fontSize > 0)
        add(line.fontSize, QString::number(options.fontSize));
    add(line.place, options.places.value(0));
    add(line.textPercent, QString::number(options.textPercent));
    add(line.direction, QString::number(int(options.direction)));
    add(line.world, options.world);
    const QRect &window = options.geometry;
    if (window.isValid())
        add(line.geometry, QStringLiteral("%1,%2,%3,%4")
                               .arg(window.x())
                               .arg(window.y())
                               .arg(window.width())
                               .arg(window.height()));
    return arguments;
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
