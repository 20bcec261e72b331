#include "plugin/catalogue.h"

#include <QString>

QString catalogueFile(const QString &locale)
{
    // Keys are searched inside the locale's name, in this order. The English file's doubled "a" is
    // the name under which the translation package installs it.
    static const struct
    {
        const char *key;
        const char *fileName;
    } catalogues[] = {
        {"zh_CN", "assistant-control-plugin_zh_CN.qm"},
        {"zh_HK", "assistant-control-plugin_zh_HK.qm"},
        {"zh_TW", "assistant-control-plugin_zh_TW.qm"},
        {"bo", "assistant-control-plugin_bo.qm"},
        {"en", "aassistant-control-plugin_en.qm"},
        {"ug", "assistant-control-plugin_ug.qm"},
    };

    for (const auto &catalogue : catalogues)
        if (locale.contains(QLatin1String(catalogue.key)))
            return QStringLiteral("/usr/share/TavrenAIAssistant/translations/") +
                   QLatin1String(catalogue.fileName);
    return QString();
}
