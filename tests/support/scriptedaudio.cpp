#include "tests/support/scriptedaudio.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QScopedValueRollback>

namespace testsupport {

ScriptedAudio::ScriptedAudio()
{
    const QByteArray name = qgetenv("SCRIPTED_MICROPHONE");
    if (!name.isEmpty())
        m_devices.append({name, true});
}

ScriptedAudio &ScriptedAudio::instance()
{
    static ScriptedAudio *audio = new ScriptedAudio; // outlives every static object
    return *audio;
}

void ScriptedAudio::install()
{
    QCoreApplication::setLibraryPaths({QStringLiteral(FAKE_AUDIO_PLUGINS)});
}

void ScriptedAudio::setDevices(const QVector<Device> &devices)
{
    m_devices = devices;
}

int ScriptedAudio::hear(const QByteArray &block)
{
    const QScopedValueRollback<bool> lock(m_locked, true);
    int taken = 0;
    const QList<ScriptedCapture *> open = openCaptures();
    for (ScriptedCapture *capture : open)
        taken += capture->sink()->write(block) == block.size();
    return taken;
}

QList<ScriptedCapture *> ScriptedAudio::openCaptures() const
{
    QList<ScriptedCapture *> open;
    for (ScriptedCapture *capture : m_captures)
        if (capture->sink())
            open.append(capture);
    return open;
}

void ScriptedAudio::add(ScriptedCapture *capture)
{
    m_captures.append(capture);
    ++m_built;
}

void ScriptedAudio::remove(ScriptedCapture *capture)
{
    m_captures.removeOne(capture);
}

void ScriptedAudio::checkMayClose() const
{
    if (m_locked)
        qFatal("scripted audio: a capture is closed from within its own sink");
    if (m_backendGone)
        qFatal("scripted audio: a capture is closed after the backend has gone");
}

void ScriptedAudio::backendGoes()
{
    m_backendGone = true;
    if (!openCaptures().isEmpty())
        qFatal("scripted audio: a capture is open while the process ends");
}

} // namespace testsupport
