#pragma once

#include "tests/support/serviceprocess.h"
#include "tests/support/virtualmicrophone.h"

namespace testsupport {

/** A machine that is online, with a microphone that hears silence and a scripted AI service. */
struct QuietMachine
{
    bool start()
    {
        if (!microphone.start(QStringLiteral("silence")) || !network.start() || !aiService.start())
            return false;
        network.setValue(QStringLiteral("state"), 70u);
        return true;
    }

    VirtualMicrophone microphone;
    ServiceProcess network{QStringLiteral("networkmanager")};
    ServiceProcess aiService{QStringLiteral("voicescript")};
};

} // namespace testsupport
