#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class AqcWrapper;

/**
 * The voice tests of all pages there were.
 *
 * A page leaves its test behind: the ten seconds of a run go on after the page was replaced. What
 * is left goes with the application object (see ProcessWide), while bus and sound server still
 * live.
 */
class LeftVoiceTests : public QObject
{
public:
    ~LeftVoiceTests() override;

    /** A test for a page that is being built. Not owned by the page; GUI thread only. */
    static AqcWrapper *newVoiceTest();

private:
    QVector<QPointer<AqcWrapper>> m_tests;
};
