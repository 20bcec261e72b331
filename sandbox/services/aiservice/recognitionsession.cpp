#include "sandbox/services/aiservice/recognitionsession.h"

#include "recognitionsessionadaptor.h"
#include "sandbox/services/aiservice/recognition.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace sandbox {

namespace {

/** "errCode" when the models cannot be loaded. */
constexpr int modelsMissing = 1;

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/** Whether every parameter that this recogniser cares about has a value that it can serve. A
 *  parameter that is not given stands for the value that can be served. */
bool isSupported(const QVariantMap &params)
{
    static const QVariantMap served = {
        {QStringLiteral("sub"), QStringLiteral("iat")},
        {QStringLiteral("language"), QStringLiteral("zh_cn")},
        {QStringLiteral("sample_rate"), QStringLiteral("16000")},
        {QStringLiteral("result_type"), QStringLiteral("json")},
        {QStringLiteral("result_encoding"), QStringLiteral("utf8")},
    };
    for (auto it = served.cbegin(); it != served.cend(); ++it)
        if (params.value(it.key(), it.value()) != it.value())
            return false;
    return true;
}

PhraseListener::Patience patience(const QVariantMap &params)
{
    PhraseListener::Patience result;
    result.beforeSpeech = params.value(QStringLiteral("vad_bos"), result.beforeSpeech).toInt();
    result.afterSpeech = params.value(QStringLiteral("vad_eos"), result.afterSpeech).toInt();
    return result;
}

} // namespace

RecognitionSession::RecognitionSession(QObject *threadParent, QObject *parent)
    : Session(parent)
    , m_threadParent(threadParent)
{
    new RecognitionSessionAdaptor(this);
}

QString RecognitionSession::startIat(const QVariantMap &params)
{
    const auto answer = [this](StartStatus status) {
        return compact(
            {{QStringLiteral("status"), status}, {QStringLiteral("session_id"), m_sessionId}});
    };
    if (m_state != Idle)
        return answer(AlreadyRunning);
    if (!isSupported(params))
        return answer(ParameterUnsupported);
    m_sessionId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_recognition = new Recognition(patience(params), m_threadParent, this);
    connect(m_recognition, &Recognition::heard, this, &RecognitionSession::tell);
    connect(m_recognition, &Recognition::failed, this, &RecognitionSession::fail);
    m_state = Listening;
    return answer(Started);
}

void RecognitionSession::stopIat()
{
    if (m_state == Listening) {
        m_state = Finishing;
        m_recognition->finish();
    }
}

void RecognitionSession::putAudio(const QByteArray &data, bool finish)
{
    if (m_state != Listening)
        return;
    record(data);
    m_recognition->hear(data);
    if (finish)
        stopIat();
}

void RecognitionSession::close()
{
    m_closed = true;
    if (m_state != Finishing)
        Session::close();
}

void RecognitionSession::tell(const Hypothesis &hypothesis)
{
    Q_EMIT onResult(hypothesis.toJson(m_sessionId));
    if (hypothesis.last)
        end();
}

void RecognitionSession::fail()
{
    Q_EMIT onError(compact(
        {{QStringLiteral("session_id"), m_sessionId},
         {QStringLiteral("errCode"), modelsMissing},
         {QStringLiteral("errInfo"), QStringLiteral("the recogniser's models cannot be loaded")}}));
    end();
}

void RecognitionSession::end()
{
    m_recognition->deleteLater();
    m_recognition = nullptr;
    m_state = Idle;
    Q_EMIT onEnd();
    if (m_closed)
        Session::close();
}

} // namespace sandbox
