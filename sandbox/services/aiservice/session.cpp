#include "sandbox/services/aiservice/session.h"

#include "sandbox/services/aiservice/wavfile.h"

namespace sandbox {

Session::Session(QObject *parent)
    : QObject(parent)
{
}

Session::~Session() = default;

void Session::recordTo(const QString &file)
{
    m_recording = std::make_unique<WavWriter>(file);
}

void Session::close()
{
    deleteLater();
}

void Session::record(const QByteArray &audio)
{
    if (m_recording)
        m_recording->append(audio);
}

} // namespace sandbox
