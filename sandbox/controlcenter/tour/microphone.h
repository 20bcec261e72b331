#pragma once

#include <QString>

namespace controlcenter {

/**
 * The sandbox's virtual microphone, whose folder stands in the environment variable
 * SANDBOX_MICROPHONE. The next program that records hears what was chosen last.
 */
class Microphone
{
public:
    /** Whether a virtual microphone is running; the tour must never record real people. */
    static bool isVirtual();

    /** @p kind is "speech", "noise", "loud", "quiet" or "silence". False when that fails. */
    static bool choose(const QString &kind);

    /** Plugs the microphone in or out. False when that fails. */
    static bool plug(bool in);
};

} // namespace controlcenter
