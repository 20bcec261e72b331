#include "pages/leftvoicetests.h"

#include "voice/aqcwrapper.h"
#include "voice/processwide.h"

LeftVoiceTests::~LeftVoiceTests()
{
    while (!m_tests.isEmpty())
        delete m_tests.takeFirst();
}

AqcWrapper *LeftVoiceTests::newVoiceTest()
{
    auto *test = new AqcWrapper(nullptr);
    ProcessWide<LeftVoiceTests>::instance()->m_tests.append(test);
    return test;
}
