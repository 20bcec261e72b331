#include "pages/leftvoicetests.h"

#include "voice/aqcwrapper.h"
#include "voice/processwide.h"

#include <QCoreApplication>

LeftVoiceTests::~LeftVoiceTests()
{
    for (const QPointer<AqcWrapper> &test : qAsConst(m_tests))
        delete test;
    // No event loop is left to delete what the tests have scheduled for deletion.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

AqcWrapper *LeftVoiceTests::newVoiceTest()
{
    auto *test = new AqcWrapper(nullptr);
    ProcessWide<LeftVoiceTests>::instance()->m_tests.append(test);
    return test;
}
