#include "sandbox/controlcenter/moduleloader.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QVersionNumber>

namespace controlcenter {
namespace {

// Major number of the module interface's "api" that this window drives.
constexpr int apiMajor = 1;

QString loadedFile;

LoadedModule failure(const QString &text)
{
    return {nullptr, text};
}

} // namespace

LoadedModule loadModule(const QString &path)
{
    if (!QFileInfo::exists(path))
        return failure(QStringLiteral("there is no plugin at %1").arg(path));

    QPluginLoader loader(QFileInfo(path).absoluteFilePath());
    const QJsonObject metaData = loader.metaData();
    if (metaData.isEmpty())
        return failure(QStringLiteral("%1 is not a Qt plugin").arg(path));

    const QString iid = metaData.value(QLatin1String("IID")).toString();
    if (iid != QLatin1String(ZCC_MODULE_INTERFACE_IID))
        return failure(QStringLiteral("%1 implements \"%2\", not \"%3\"")
                           .arg(path, iid, QLatin1String(ZCC_MODULE_INTERFACE_IID)));

    const QString api =
        metaData.value(QLatin1String("MetaData")).toObject().value(QLatin1String("api")).toString();
    if (QVersionNumber::fromString(api).majorVersion() != apiMajor)
        return failure(QStringLiteral("%1 is made for module api \"%2\", this window supports %3.x")
                           .arg(path, api)
                           .arg(apiMajor));

    auto *module = qobject_cast<zccV20::ModuleInterface *>(loader.instance());
    if (!module)
        return failure(
            loader.isLoaded()
                ? QStringLiteral("%1 has no module object").arg(path)
                : QStringLiteral("%1 could not be loaded: %2").arg(path, loader.errorString()));
    loadedFile = loader.fileName();
    return {module, QString()};
}

QString loadedModuleFile()
{
    return loadedFile;
}

} // namespace controlcenter
