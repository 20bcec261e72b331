#pragma once

#include <QObject>

namespace sandbox {

class StateStore;

/**
 * Text to speech: contract com.corvane.aiassistant.tts.
 *
 * State: "tts.enabled" and "tts.window" (bool), "tts.speaker" ("x_tovali", "x_morven" or
 * "x2_pella").
 */
class TextToSpeech : public QObject
{
    Q_OBJECT

public:
    explicit TextToSpeech(StateStore *state, QObject *parent = nullptr);

public Q_SLOTS:
    bool getTTSEnable() const;
    void setTTSEnable(bool enabled);
    bool getEnableWindow() const;
    void setEnableWindow(bool enabled);
    QString getSpeaker() const;
    void setSpeaker(const QString &speaker);

private:
    StateStore *m_state;
};

} // namespace sandbox
