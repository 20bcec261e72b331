#pragma once

#include "bus/buscalls.h"

#include <QString>

/** Bus names, object paths and interfaces of the services that the pages talk to. */
namespace ServiceNames {

using BusCalls::Endpoint;

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
