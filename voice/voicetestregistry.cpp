#include "voice/voicetestregistry.h"

#include "voice/aqcwrapper.h"
#include "voice/processwide.h"

VoiceTestRegistry::~VoiceTestRegistry()
{
    while (!m_tests.isEmpty())
        delete m_tests.takeFirst();
}

AqcWrapper *VoiceTestRegistry::createVoiceTest()
{
    auto *test = new AqcWrapper(nullptr);
    ProcessWide<VoiceTestRegistry>::instance()->m_tests.append(test);
    return test;
}
