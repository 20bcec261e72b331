#include "tests/bus/voiceservice/qualitycheck.h"

#include "qualitycheckadaptor.h"

namespace voicescript {

QualityCheck::QualityCheck(QObject *parent)
    : QObject(parent)
{
    new QualityCheckAdaptor(this);
}

QString QualityCheck::startAqc()
{
    return QStringLiteral("started");
}

QString QualityCheck::stopAqc()
{
    return QStringLiteral("stopped");
}

void QualityCheck::putAudio(const QByteArray &audio_buf, bool finish)
{
    Q_UNUSED(finish)
    m_audio += audio_buf;
}

} // namespace voicescript
