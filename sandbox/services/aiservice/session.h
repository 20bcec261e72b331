#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

namespace sandbox {

class WavWriter;

/** What every session of the AI service has: a client that owns it, and perhaps a recording. */
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(QObject *parent = nullptr);
    ~Session() override;

    /** From now on everything that is heard is also written to the WAV file @p file. */
    void recordTo(const QString &file);

    /** The client has closed the session. It deletes itself, perhaps after some last words. */
    virtual void close();

protected:
    /** To be called with every block of audio that the session listens to. */
    void record(const QByteArray &audio);

private:
    std::unique_ptr<WavWriter> m_recording;
};

} // namespace sandbox
