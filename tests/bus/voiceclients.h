#pragma once

#include "comcorvaneaiserviceiatinterface.h"
#include "tests/bus/voiceservice.h"
#include "voice/aqcwrapper.h"
#include "voice/iatwapper.h"

#include <QTest>
#include <QVector>

#include <memory>

namespace testsupport {

/** A recognition client with everything that it reports, in order. */
class RecogniserClient : public QObject
{
public:
    RecogniserClient()
    {
        connect(&iat, &IatWapper::onIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    heard << QStringLiteral("%1 %2%3").arg(text).arg(int(type)).arg(
                        finish ? QStringLiteral(" finish") : QString());
                });
        connect(&iat, &IatWapper::onIatError, this, [this](long code, const QString &info) {
            heard << QStringLiteral("error %1 %2").arg(code).arg(info);
        });
    }

    QList<ComCorvaneAiserviceIatInterface *> proxies() const
    {
        return iat.findChildren<ComCorvaneAiserviceIatInterface *>();
    }

    IatWapper iat;
    QStringList heard;
};

/** A voice test with what it reports. */
class VoiceTest : public QObject
{
public:
    VoiceTest()
        : wrapper(new AqcWrapper)
    {
        connect(wrapper.get(), &AqcWrapper::signalAqcResult, this,
                [this](const QString &result) { verdicts << result; });
        connect(wrapper.get(), &AqcWrapper::signalUpdateAudioLevel, this,
                [this](double level) { levels << level; });
        connect(wrapper.get(), &AqcWrapper::signaleIatResult, this,
                [this](const QString &text, IatWapper::IatResultType type, bool finish) {
                    texts << QStringLiteral("%1 %2 %3").arg(text).arg(int(type)).arg(finish);
                });
    }

    std::unique_ptr<AqcWrapper> wrapper;
    QStringList verdicts;
    QVector<double> levels;
    QStringList texts;
};

} // namespace testsupport
