#include "tests/fakeaudio/scriptedinput.h"

namespace testsupport {

ScriptedInput::ScriptedInput(const QByteArray &device)
    : m_device(device)
{
    ScriptedAudio::instance().add(this);
}

ScriptedInput::~ScriptedInput()
{
    ScriptedAudio::instance().checkMayClose();
    ScriptedAudio::instance().remove(this);
}

void ScriptedInput::start(QIODevice *device)
{
    m_sink = device;
    setState(QAudio::ActiveState);
}

QIODevice *ScriptedInput::start()
{
    return nullptr;
}

void ScriptedInput::stop()
{
    ScriptedAudio::instance().checkMayClose();
    m_sink = nullptr;
    setState(QAudio::StoppedState);
}

void ScriptedInput::reset()
{
    stop();
}

void ScriptedInput::suspend()
{
    setState(QAudio::SuspendedState);
}

void ScriptedInput::resume()
{
    setState(QAudio::ActiveState);
}

int ScriptedInput::bytesReady() const
{
    return 0;
}

int ScriptedInput::periodSize() const
{
    return 0;
}

void ScriptedInput::setBufferSize(int value)
{
    Q_UNUSED(value)
}

int ScriptedInput::bufferSize() const
{
    return 0;
}

void ScriptedInput::setNotifyInterval(int milliSeconds)
{
    Q_UNUSED(milliSeconds)
}

int ScriptedInput::notifyInterval() const
{
    return 0;
}

qint64 ScriptedInput::processedUSecs() const
{
    return 0;
}

qint64 ScriptedInput::elapsedUSecs() const
{
    return 0;
}

QAudio::Error ScriptedInput::error() const
{
    return QAudio::NoError;
}

QAudio::State ScriptedInput::state() const
{
    return m_state;
}

void ScriptedInput::setFormat(const QAudioFormat &format)
{
    m_format = format;
}

QAudioFormat ScriptedInput::format() const
{
    return m_format;
}

void ScriptedInput::setVolume(qreal volume)
{
    Q_UNUSED(volume)
}

qreal ScriptedInput::volume() const
{
    return 1.0;
}

void ScriptedInput::setState(QAudio::State state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT stateChanged(state);
}

} // namespace testsupport
