#include <QObject>
#include <QtPlugin>

/** The least that a plugin can be; it links what the module links. */
class EmptyPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "EmptyPlugin")
};

#include "emptyplugin.moc"
