#include "doctor/checks.h"
#include "plugin/catalogue.h"

#include <zcc/moduleinterface.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <QLocale>
#include <QPluginLoader>
#include <QTranslator>

namespace doctor {

namespace {

Finding pluginFailure(const QString &file, const QString &text, const QString &remedy)
{
    return {Status::Failure,
            QStringLiteral("plugin"),
            file,
            text,
            QStringLiteral("The control center has no entry \"Assistive Tools\"."),
            remedy};
}

// What the module's own sources declare; see plugin/.
QJsonObject declaredMetaData()
{
    QFile file(QStringLiteral(":/plugin.json"));
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace

Finding checkPlugin(const QString &file)
{
    const QString reinstall = QStringLiteral("Install the module's package again.");
    if (!QFileInfo::exists(file)) {
        return pluginFailure(file, QStringLiteral("is not there"),
                             QStringLiteral("Install the module's package, or name its file with "
                                            "--plugin."));
    }

    QPluginLoader loader(QFileInfo(file).absoluteFilePath());
    const QJsonObject found = loader.metaData();
    if (found.isEmpty())
        return pluginFailure(file, QStringLiteral("is not a plugin of this Qt"), reinstall);
    const QJsonObject foundData = found.value(QLatin1String("MetaData")).toObject();
    const QString api = declaredMetaData().value(QLatin1String("api")).toString();
    const struct
    {
        const char *what;
        QString value;
        QString wanted;
    } rows[] = {
        {"interface", found.value(QLatin1String("IID")).toString(),
         QStringLiteral(ZCC_MODULE_INTERFACE_IID)},
        {"class", found.value(QLatin1String("className")).toString(),
         QStringLiteral("TavrenAIAssitantControlPlugin")},
        {"api", foundData.value(QLatin1String("api")).toString(), api},
    };
    for (const auto &row : rows) {
        if (row.value != row.wanted) {
            return pluginFailure(file,
                                 QStringLiteral("declares the %1 \"%2\", not \"%3\"")
                                     .arg(QLatin1String(row.what), row.value, row.wanted),
                                 reinstall);
        }
    }

    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    QObject *module = loader.instance();
    if (!module) {
        return pluginFailure(file, loader.errorString(),
                             QStringLiteral("Install what it names, in the versions that the "
                                            "module was built for."));
    }
    if (!module->qt_metacast(ZCC_MODULE_INTERFACE_IID))
        return pluginFailure(file, QStringLiteral("has an object that is no module"), reinstall);
    return {Status::Ok, QStringLiteral("plugin"),
            file,       QStringLiteral("loads, api ") + api,
            QString(),  QString()};
}

Finding checkCatalogue()
{
    const QString check = QStringLiteral("catalogue");
    const QString locale = QLocale::system().name();
    const QString file = catalogueFile(locale);
    if (file.isEmpty()) {
        return {Status::Warning,
                check,
                locale,
                QStringLiteral("has no message catalogue"),
                QStringLiteral("All texts are English."),
                QStringLiteral("None is made for this locale; see LANG and LC_ALL.")};
    }
    if (QTranslator().load(file))
        return {Status::Ok, check, locale, QStringLiteral("has ") + file, QString(), QString()};
    // The English catalogue says what the sources say.
    const bool english = QLocale::system().language() == QLocale::English;
    return {english ? Status::Warning : Status::Failure,
            check,
            locale,
            QStringLiteral("cannot have %1: %2")
                .arg(file, QFileInfo::exists(file) ? QStringLiteral("it is no catalogue")
                                                   : QStringLiteral("it is not there")),
            english ? QStringLiteral("Nothing: the texts are English all the same.")
                    : QStringLiteral("All texts are English."),
            QStringLiteral("Install the package with the module's translations.")};
}

} // namespace doctor
