#include "sandbox/services/assistant/mainwindow.h"
#include "sandbox/services/assistant/speechtotext.h"
#include "sandbox/services/assistant/texttospeech.h"
#include "sandbox/services/assistant/translation.h"
#include "sandbox/services/assistant/voicewakeuper.h"
#include "sandbox/services/common/service.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    sandbox::Service service({QStringLiteral("assistant"),
                              QStringLiteral("com.corvane.aiassistant"),
                              QDBusConnection::SessionBus,
                              QStringLiteral("Holds the settings of the assistant's features.")});
    sandbox::VoiceWakeuper wakeuper(service.state());
    sandbox::MainWindow window(service.state());
    sandbox::SpeechToText speechToText(service.state());
    sandbox::TextToSpeech textToSpeech(service.state());
    sandbox::Translation translation(service.state());
    service.publish(QStringLiteral("/aiassistant/voicewakeuper"), &wakeuper);
    service.publish(QStringLiteral("/aiassistant/tavrenmain"), &window);
    service.publish(QStringLiteral("/aiassistant/iat"), &speechToText);
    service.publish(QStringLiteral("/aiassistant/tts"), &textToSpeech);
    service.publish(QStringLiteral("/aiassistant/trans"), &translation);
    return service.run();
}
