#include "sandbox/services/aiservice/qualitysession.h"

#include "qualitysessionadaptor.h"
#include "sandbox/services/aiservice/qualityverdict.h"

namespace sandbox {

namespace {

/** Both calls always succeed; the contract leaves the text open. */
const QString accepted = QStringLiteral(R"({"status":0})");

} // namespace

QualitySession::QualitySession(QObject *parent)
    : Session(parent)
{
    new QualitySessionAdaptor(this);
}

QString QualitySession::startAqc()
{
    m_reader = PcmReader();
    m_meter = QualityMeter();
    m_running = true;
    return accepted;
}

QString QualitySession::stopAqc()
{
    judge();
    return accepted;
}

void QualitySession::putAudio(const QByteArray &audio, bool last)
{
    if (!m_running)
        return;
    record(audio);
    const QVector<qint16> samples = m_reader.read(audio);
    m_meter.add(samples.constData(), samples.size());
    if (last)
        judge();
}

void QualitySession::judge()
{
    if (!m_running)
        return;
    m_running = false;
    // Queued: the verdict follows the answer to the call that asked for it.
    const QString notice = qualityNotice(m_meter.figures());
    QMetaObject::invokeMethod(
        this, [this, notice] { Q_EMIT onNotify(notice); }, Qt::QueuedConnection);
}

} // namespace sandbox
