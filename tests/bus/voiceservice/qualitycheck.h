#pragma once

#include <QByteArray>
#include <QObject>

namespace voicescript {

/** A quality-check session: contract com.corvane.aiservice.aqc. Keeps the audio that it gets. */
class QualityCheck : public QObject
{
    Q_OBJECT

public:
    explicit QualityCheck(QObject *parent);

    QByteArray audio() const { return m_audio; }

public Q_SLOTS:
    QString startAqc();
    QString stopAqc();
    void putAudio(const QByteArray &audio, bool finish);

Q_SIGNALS:
    void onNotify(const QString &result);

private:
    QByteArray m_audio;
};

} // namespace voicescript
