#include "tests/bus/voiceservice/recognition.h"

#include "recognitionadaptor.h"

namespace voicescript {

Recognition::Recognition(const QString &sessionId, QObject *parent)
    : QObject(parent)
    , m_sessionId(sessionId)
{
    new RecognitionAdaptor(this);
}

QString Recognition::startIat(const QVariantMap &params)
{
    QStringList parameters;
    for (auto entry = params.cbegin(); entry != params.cend(); ++entry)
        parameters << QStringLiteral("%1 %2 %3")
                          .arg(entry.key(), QLatin1String(entry.value().typeName()),
                               entry.value().toString());
    Q_EMIT started(parameters);
    return QStringLiteral(R"({"status":0,"session_id":"%1"})").arg(m_sessionId);
}

void Recognition::stopIat() {}

void Recognition::putAudio(const QByteArray &data, bool finish)
{
    Q_UNUSED(finish)
    m_audio += data;
}

} // namespace voicescript
