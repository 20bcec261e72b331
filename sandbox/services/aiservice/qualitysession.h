#pragma once

#include "sandbox/services/aiservice/qualityverdict.h"
#include "sandbox/services/aiservice/sessionmanager.h"
#include "sandbox/services/aiservice/wavfile.h"

namespace sandbox {

/**
 * An "aqc" session: contract com.corvane.aiservice.aqc. Judges what is heard between startAqc and
 * stopAqc, or audio marked as the last; every start brings one verdict. Audio outside is ignored.
 */
class QualitySession : public Session
{
    Q_OBJECT

public:
    explicit QualitySession(QObject *parent = nullptr);

public Q_SLOTS:
    QString startAqc();
    QString stopAqc();
    void putAudio(const QByteArray &audio, bool finish);

Q_SIGNALS:
    void onNotify(const QString &result);

private:
    void judge();

    PcmReader m_reader;
    QualityMeter m_meter;
    bool m_running = false;
};

} // namespace sandbox
