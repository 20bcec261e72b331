#include "zframeworkdbus/audio.h"

__Audio::__Audio(const QString &service, const QString &path, const QDBusConnection &connection,
                 QObject *parent)
    : QDBusAbstractInterface(service, path, staticInterfaceName(), connection, parent)
{
}

__Audio::~__Audio() = default;
