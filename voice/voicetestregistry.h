#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class AqcWrapper;

/**
 * Keeps the voice tests of a process until its end.
 *
 * No page owns its test: the ten seconds of a run go on after the page was replaced. What is left
 * goes with the application object (see ProcessWide), while bus and sound server still live.
 */
class VoiceTestRegistry : public QObject
{
public:
    ~VoiceTestRegistry() override;

    /** A test for a page that is being built. Not owned by the page; GUI thread only. */
    static AqcWrapper *createVoiceTest();

private:
    QVector<QPointer<AqcWrapper>> m_tests;
};
