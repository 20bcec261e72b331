#include "proxy/servicenames.h"

namespace ServiceNames {

namespace {

Endpoint assistantObject(const QString &path, const QString &interface)
{
    return {QStringLiteral("com.corvane.aiassistant"), QStringLiteral("/aiassistant/") + path,
            QStringLiteral("com.corvane.aiassistant.") + interface};
}

} // namespace

Endpoint voiceWakeuper()
{
    return assistantObject(QStringLiteral("voicewakeuper"), QStringLiteral("voicewakeuper"));
}

Endpoint mainWindow()
{
    return assistantObject(QStringLiteral("tavrenmain"), QStringLiteral("mainWindow"));
}

Endpoint speechToText()
{
    return assistantObject(QStringLiteral("iat"), QStringLiteral("iat"));
}

Endpoint textToSpeech()
{
    return assistantObject(QStringLiteral("tts"), QStringLiteral("tts"));
}

Endpoint translation()
{
    return assistantObject(QStringLiteral("trans"), QStringLiteral("trans"));
}

Endpoint keybinding()
{
    return {QStringLiteral("com.tavren.daemon.Keybinding"),
            QStringLiteral("/com/tavren/daemon/Keybinding"),
            QStringLiteral("com.tavren.daemon.Keybinding")};
}

Endpoint networkManager()
{
    return {QStringLiteral("org.freedesktop.NetworkManager"),
            QStringLiteral("/org/freedesktop/NetworkManager"),
            QStringLiteral("org.freedesktop.NetworkManager")};
}

QString dockService()
{
    return QStringLiteral("com.corvane.aiassistant.dock");
}

QString dockPath()
{
    return QStringLiteral("/com/corvane/aiassistant/dockIconControl");
}

} // namespace ServiceNames
