#include "bus/buscalls.h"
#include "proxy/assistantstateproxy.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

QString AssistantStateProxy::getShortCut(QString id, int type)
{
    const QDBusReply<QString> reply =
        buscalls::callProcessingEvents(Contract::Keybinding::GetShortcut(), {id, type});

    const QJsonObject shortcut =
        QJsonDocument::fromJson(buscalls::valueOr<QString>(reply, QString()).toUtf8()).object();
    const QString key = QStringLiteral("Accels");
    if (!shortcut.contains(key)) {
        qCritical() << "Key Accels not found in JSON.";
        return QString();
    }

    QString accelerator = shortcut.value(key).toArray().at(0).toString();
    accelerator.remove(QLatin1Char('<'));
    accelerator.replace(QLatin1Char('>'), QLatin1Char('+'));
    accelerator.replace(QLatin1String("Control"), QLatin1String("Ctrl"));
    return accelerator;
}
