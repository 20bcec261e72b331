#pragma once

#include <QJsonValue>
#include <QVariant>

namespace sandbox {

/**
 * An argument of a bus message as JSON, for logs that people and tests read. Byte arrays become
 * their length in an object, {"bytes": 1600}, since logs of audio would drown everything else.
 */
QJsonValue jsonValue(const QVariant &argument);

} // namespace sandbox
