#pragma once

#include "doctor/finding.h"

#include <QDBusConnection>

namespace doctor {

/** The module's file: whether a control center can load @p file. */
Finding checkPlugin(const QString &file);

/** The module's texts in the language of this session. */
Finding checkCatalogue();

/** What the module uses on one bus: each service, its objects, and what they answer. */
QList<Finding> checkServices(QDBusConnection::BusType type);

/** The default microphone, without opening it. */
Finding checkMicrophone();

/** Two seconds of what a voice test would record. */
Finding listenToMicrophone();

/** Opens a session of each kind at the AI service, and frees it. */
QList<Finding> checkSessions();

} // namespace doctor
