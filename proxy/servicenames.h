#pragma once

#include <QString>

/** Bus names, object paths and interfaces of the services that the pages talk to. */
namespace ServiceNames {

/** One object of a service, with the interface used on it. */
struct Endpoint
{
    QString service;
    QString path;
    QString interface;
};

Endpoint voiceWakeuper();
Endpoint mainWindow();
Endpoint speechToText();
Endpoint textToSpeech();
Endpoint translation();
Endpoint keybinding();
Endpoint networkManager(); ///< On the system bus; all others are on the session bus.

/** The dock icon's service and path; the generated proxy knows its interface. */
QString dockService();
QString dockPath();

} // namespace ServiceNames
