#pragma once

#include "contracts/contract.h"

#include <QObject>
#include <QString>

/** What all clients of the AI service share. */
namespace aiservice {

/** Its well-known name on the session bus. */
inline QString busName()
{
    return Contract::SessionManager::object().service;
}

/**
 * QObject::connect() for a signal of @p session, a proxy; @p rest is its other arguments. Connects
 * nothing on an empty path, which would match the signals of every session of the service.
 */
template <typename Session, typename... Rest>
void connectSignal(const Session *session, Rest... rest)
{
    if (!session->path().isEmpty())
        QObject::connect(session, rest...);
}

} // namespace aiservice
