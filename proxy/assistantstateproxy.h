#pragma once

#include <QString>

/**
 * The one place that knows how the assistant's services, the keybinding daemon and NetworkManager
 * are asked. Static functions only; GUI thread only.
 *
 * Writes are sent without waiting and return 0, whether or not a service is there. Reads wait for
 * the reply while GUI events are processed (so that the caller may be gone when they return) and
 * yield the named fallback when the reply is missing, an error or of another type.
 */
class AssistantStateProxy
{
public:
    AssistantStateProxy() = delete;

    /** What the wake-up service keeps in its settings store; false where that says nothing. */
    struct StoredWakeup
    {
        bool enabled;
        bool oneShot;
    };
    /** Reads the store. No bus traffic. */
    static StoredWakeup storedWakeup();

    /** Voice wake-up on or off. Waits for the service while GUI events are processed. */
    static void setVoiceWakeupState(bool on);

    /** One-shot mode: on for any @p mode but 0. */
    static qint32 setOneShotMode(int mode);

    /** The assistant's own voice: 0 female, anything else male. */
    static qint32 setAssistantSpeaker(int speaker);

    static bool queryVoiceIatState(); ///< Speech to text is on; fallback false.
    static qint32 setVoiceIatState(bool on);
    static QString getVoiceIatLanguage(); ///< "zh_cn" or "en_us"; fallback "zh_cn".
    static qint32 setVoiceIatLanguage(const QString &language);

    static bool queryVoiceTTSState(); ///< Text to speech is on; fallback false.
    static qint32 setVoiceTTSState(bool on);
    static bool queryVoiceTTSWindowState(); ///< The speech widget is shown; fallback false.
    static qint32 setVoiceTTSWindowState(bool on);

    /** Index of the reading voice: 0 female, 1 male, 2 child; also 2 for every other answer. */
    static int getVoiceTTSSpeaker();

    /** Reading voice by index, as above; any other index is 0. */
    static qint32 setVoiceTTSSpeaker(int speaker);

    static bool queryAssistantTransState(); ///< Translation is on; fallback false.
    static qint32 setAssistantTransState(bool on);
    static QString getAssistantTransLang(); ///< "cn|en" or "en|cn"; fallback "en|cn".
    static qint32 setAssistantTransLang(QString direction);

    /** True when NetworkManager reports global connectivity. Blocks; false when it is absent. */
    static bool checkNetworkState();

    /**
     * Display text of a shortcut of the keybinding daemon, such as "Ctrl+Alt+T". Empty when the
     * daemon names none. Waits like the reads above.
     */
    static QString getShortCut(QString id, int type);
};
