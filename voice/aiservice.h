#pragma once

#include <QString>

/** Names of the AI service that all its clients share. */
namespace AIService {

/** Its well-known name on the session bus. */
inline QString busName()
{
    return QStringLiteral("com.corvane.aiservice");
}

} // namespace AIService
