#include "voice/iatwapper.h"

#include "bus/buscalls.h"
#include "bus/serviceproxy.h"
#include "comcorvaneaiserviceiatinterface.h"
#include "voice/aiservice.h"
#include "voice/aiservicesession.h"
#include "voice/processwide.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString recognitionAbility()
{
    return QStringLiteral("iat");
}

// The numbers that the service wants as texts are texts here.
QVariantMap recognitionParameters()
{
    constexpr int silenceMs = 10000; // longer than a test: the service must not end it on its own
    return {
        {QStringLiteral("sub"), QStringLiteral("iat")},
        {QStringLiteral("dwa"), QStringLiteral("wpgs")}, // hypotheses may be corrected later
        {QStringLiteral("language"), QStringLiteral("zh_cn")},
        {QStringLiteral("accent"), QStringLiteral("mandarin")},
        {QStringLiteral("sample_rate"), QStringLiteral("16000")},
        {QStringLiteral("vad_eos"), silenceMs},
        {QStringLiteral("vad_bos"), silenceMs},
        {QStringLiteral("result_type"), QStringLiteral("json")},
        {QStringLiteral("result_encoding"), QStringLiteral("utf8")},
    };
}

// An empty object for everything that is not a JSON object.
QJsonObject parseObject(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

QString sessionIdOf(const QJsonObject &message)
{
    return message.value(QLatin1String("session_id")).toString();
}

} // namespace

IatWapper::IatWapper()
{
    // A program that calls exit() ends a running test only after main(), and that frees the
    // session.
    ProcessWide<AIServiceSession>::keepUntilEndOfCaller();
}

bool IatWapper::startIat()
{
    AIServiceSession *sessions = AIServiceSession::instance();
    const int code = sessions->createSession(recognitionAbility());
    if (code != 0) {
        qDebug() << "Iat createSession failed";
        return false;
    }

    m_iat = new ServiceProxy<ComCorvaneAiserviceIatInterface>(
        aiservice::busName(), sessions->queryObjectPath(recognitionAbility()),
        QDBusConnection::sessionBus(), this);
    const QDBusMessage reply =
        buscalls::waitFor(m_iat->connection(), m_iat->startIat(recognitionParameters()));
    const QJsonObject answer = parseObject(buscalls::valueOr<QString>(reply, QString()));
    const int status = answer.value(QLatin1String("status")).toInt();
    m_sessionId = sessionIdOf(answer);

    if (status != 0)
        sessions->destroySession(recognitionAbility());
    else
        connectResults();
    m_fixedText.clear();
    m_pendingText.clear();
    return status == 0;
}

int IatWapper::stopIat()
{
    if (!m_iat)
        return 0;

    qInfo() << "IatWapper stop iat";
    m_iat->stopIat();
    disconnectResults();
    m_iat->deleteLater();
    m_iat = nullptr;
    AIServiceSession::instance()->destroySession(recognitionAbility());
    return 0;
}

int IatWapper::appendAudio(QByteArray data)
{
    if (m_iat)
        m_iat->putAudio(data, false);
    return 0;
}

int IatWapper::paserIatResultPgs(const char *text, QString &out, IatResultType &type, bool &isLast)
{
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray(text));
    if (document.isNull()) {
        qDebug() << "paserPgs pgs: " << text;
        return 0;
    }

    const QJsonObject hypothesis = document.object();
    isLast = hypothesis.value(QLatin1String("ls")).toBool();

    const QJsonValue pgs = hypothesis.value(QLatin1String("pgs"));
    if (pgs.isUndefined())
        type = IatResultNone;
    else
        type = pgs.toString() == QLatin1String("rpl") ? IatResultReplace : IatResultAppend;

    // The candidates of a slot are ordered; the first is the best.
    const QJsonArray slotList = hypothesis.value(QLatin1String("ws")).toArray();
    for (const QJsonValue &slot : slotList) {
        const QJsonArray candidates = slot.toObject().value(QLatin1String("cw")).toArray();
        out += candidates.at(0).toObject().value(QLatin1String("w")).toString();
    }
    return 0;
}

void IatWapper::handleEnd()
{
    // Nothing to do: the last result says so itself.
}

void IatWapper::handleError(const QString &json)
{
    const QJsonObject message = parseObject(json);
    if (sessionIdOf(message) != m_sessionId)
        return;

    const QString errInfo = message.value(QLatin1String("errInfo")).toString();
    const int errCode = message.value(QLatin1String("errCode")).toInt();
    if (errCode != 0)
        Q_EMIT onIatError(errCode, errInfo);
}

void IatWapper::handleResult(const QString &json)
{
    qDebug() << "handleResult, sessionId=" << m_sessionId;
    const QJsonObject message = parseObject(json);
    const QString received = sessionIdOf(message);
    if (received != m_sessionId) {
        qCritical() << "Iat handleResult error! " << received << ":" << m_sessionId;
        return;
    }

    // They keep these values when the hypothesis is not JSON.
    IatResultType type = IatResultNone;
    bool isLast = false;
    QString piece;
    const QByteArray text = message.value(QLatin1String("text")).toString().toUtf8();
    paserIatResultPgs(text.constData(), piece, type, isLast);
    qDebug() << "result: " << piece << " type:" << type;

    const bool finish = message.value(QLatin1String("finish")).toBool();
    switch (type) {
    case IatResultReplace:
        m_pendingText = piece;
        Q_EMIT onIatResult(m_fixedText + m_pendingText, type, finish);
        break;
    case IatResultAppend:
        // The new piece is shown but not kept: the service restates it with the next result.
        m_fixedText += m_pendingText;
        m_pendingText.clear();
        Q_EMIT onIatResult(m_fixedText + piece, type, finish);
        break;
    case IatResultNone:
        break;
    }
}

void IatWapper::connectResults()
{
    aiservice::connectSignal(m_iat, SIGNAL(onEnd()), this, SLOT(handleEnd()));
    aiservice::connectSignal(m_iat, SIGNAL(onError(QString)), this, SLOT(handleError(QString)));
    aiservice::connectSignal(m_iat, SIGNAL(onResult(QString)), this, SLOT(handleResult(QString)));
}

void IatWapper::disconnectResults()
{
    disconnect(m_iat, SIGNAL(onEnd()), this, SLOT(handleEnd()));
    disconnect(m_iat, SIGNAL(onError(QString)), this, SLOT(handleError(QString)));
    disconnect(m_iat, SIGNAL(onResult(QString)), this, SLOT(handleResult(QString)));
}
