#pragma once

#include <QAudioFormat>
#include <QByteArray>
#include <QList>
#include <QVector>

#if defined(SCRIPTEDAUDIO_BUILD)
#define SCRIPTEDAUDIO_EXPORT Q_DECL_EXPORT
#else
#define SCRIPTEDAUDIO_EXPORT Q_DECL_IMPORT
#endif

class QIODevice;

namespace testsupport {

/** An audio input as the script sees it; implemented by the plugin. */
class ScriptedCapture
{
public:
    virtual ~ScriptedCapture() = default;
    virtual QByteArray device() const = 0;
    virtual QAudioFormat captureFormat() const = 0;
    /** Where blocks go; null while the capture is not open. */
    virtual QIODevice *sink() const = 0;
};

/**
 * The microphones of a test: which there are, what they can do, and what they hear.
 *
 * Behaves like a strict sound backend. It calls the sink with its lock held, so that stopping or
 * deleting an input from there ends the process; and so does a capture that is still open when the
 * backend goes at the end of the process.
 *
 * A program that has no script of its own begins with the microphone SCRIPTED_MICROPHONE, if that
 * is set in its environment.
 */
class SCRIPTEDAUDIO_EXPORT ScriptedAudio
{
public:
    struct Device
    {
        QByteArray name;
        bool fits; // can deliver whatever format it is asked for
    };

    static ScriptedAudio &instance();

    /**
     * Makes Qt find these devices and no others. Call after the application object is built and
     * before any other call of Qt Multimedia.
     */
    static void install();

    /** The devices from now on; the first is the default one. */
    void setDevices(const QVector<Device> &devices);
    const QVector<Device> &devices() const { return m_devices; }

    /** Every open capture hears @p block. Returns how many sinks took all of it. */
    int hear(const QByteArray &block);

    /** The captures that exist, oldest first, and those of them that are open. */
    QList<ScriptedCapture *> captures() const { return m_captures; }
    QList<ScriptedCapture *> openCaptures() const;
    /** How many were ever built. */
    int built() const { return m_built; }
    /** How often a device was asked what it can do, which opens a real one for a moment. */
    int asked() const { return m_asked; }

    // For the plugin.
    void ask() { ++m_asked; }
    void add(ScriptedCapture *capture);
    void remove(ScriptedCapture *capture);
    /** A capture is being stopped or deleted. */
    void checkMayClose() const;
    void backendGoes();

private:
    ScriptedAudio();

    QVector<Device> m_devices;
    QList<ScriptedCapture *> m_captures;
    int m_built = 0;
    int m_asked = 0;
    bool m_locked = false;      // the backend is calling a sink
    bool m_backendGone = false; // the process is ending
};

inline ScriptedAudio &audio()
{
    return ScriptedAudio::instance();
}

} // namespace testsupport
