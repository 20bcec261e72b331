#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/services/control/servicecontrol.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QLabel>
#include <QTest>
#include <QWindow>

#include <algorithm>

namespace controlcenter {
namespace {

// A test takes ten seconds; this is what a slow machine may add.
constexpr int longestTest = 25000; // ms

// How soon the panel must follow an action that waits for nothing.
constexpr int longestReaction = 5000; // ms

// A pause between two words.
constexpr int longestPause = 1500; // ms

// Above the focus ring, in pixels; a silent room gives 2.
constexpr int clearlyRisen = 4;

constexpr uint networkConnected = 70; // states of the network manager's interface
constexpr uint networkDisconnected = 20;

// The service that has the virtual microphone.
const QString audioService = QStringLiteral("audio");
const QString soundKey = QStringLiteral("microphone.sound");
const QString pluggedKey = QStringLiteral("microphone.plugged");

// Whether a virtual microphone is running; the tour must never record real people.
bool isMicrophoneVirtual()
{
    return sandbox::ServiceControl(audioService).keys().contains(soundKey);
}

// What the service says against a value; empty when the microphone has it.
QString setMicrophone(const QString &key, const QVariant &value)
{
    sandbox::ServiceControl audio(audioService);
    audio.setValue(key, value);
    return audio.error();
}

// The page's text in the window's language.
QString translated(const char *source)
{
    return QCoreApplication::translate("AssistantSettingWidget", source);
}

bool pageShows(const TourDriver &driver, const QString &text)
{
    const QWidget *page = driver.window()->currentPage();
    const auto labels = page ? page->findChildren<QLabel *>() : QList<QLabel *>();
    return std::any_of(labels.cbegin(), labels.cend(), [&](const QLabel *label) {
        return label->isVisible() && label->text() == text;
    });
}

QWidget *wave(const TourDriver &driver)
{
    return driver.control(translated("Microphone level"));
}

QWidget *firstLink(const TourDriver &driver)
{
    return driver.control(translated("Click here to test"));
}

QWidget *againLink(const TourDriver &driver)
{
    return driver.control(translated("Click here to test again"));
}

// Opens the page afresh and presses its link.
QString pressLink(TourDriver &driver)
{
    QString problem = driver.openPage(modulepages::assistant);
    if (!problem.isEmpty())
        return problem;
    QWidget *link = firstLink(driver);
    if (!link)
        return QStringLiteral("the link is not there");
    if (!driver.tabTo(link))
        return QStringLiteral("Tab does not lead to the link");
    driver.press(Qt::Key_Space);
    return QString();
}

QString startTest(TourDriver &driver, const QString &microphone)
{
    if (!isMicrophoneVirtual())
        return QStringLiteral("no virtual microphone is running");
    QString problem = setMicrophone(soundKey, microphone);
    if (problem.isEmpty())
        problem = pressLink(driver);
    if (!problem.isEmpty())
        return problem;
    if (!driver.waitFor([&] { return wave(driver) != nullptr; }, longestReaction))
        return QStringLiteral("the wave is not shown");
    return QString();
}

QString awaitVerdict(TourDriver &driver, const QString &verdict, int milliseconds)
{
    if (!driver.waitFor([&] { return againLink(driver) || firstLink(driver); }, milliseconds))
        return QStringLiteral("the test does not end");
    if (!againLink(driver))
        return QStringLiteral("no test is running");
    if (pageShows(driver, verdict))
        return QString();
    QStringList texts;
    for (const QLabel *label : driver.window()->currentPage()->findChildren<QLabel *>())
        if (label->isVisible())
            texts.append(label->text());
    return QStringLiteral("the page does not say \"%1\", but: %2")
        .arg(verdict, texts.join(QStringLiteral(" | ")));
}

// Words of the phrase that the user is asked to say; a recogniser may miss some of them.
bool wordsRecognised(const TourDriver &driver)
{
    const QStringList words = {QStringLiteral("预约"), QStringLiteral("明天"),
                               QStringLiteral("早上"), QStringLiteral("视频"),
                               QStringLiteral("会议")};
    const auto labels = driver.window()->currentPage()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        // The phrase to say is on the page, too, in quotes.
        if (!label->isVisible() || label->text().contains(QLatin1Char('"')))
            continue;
        for (const QString &word : words)
            if (label->text().contains(word))
                return true;
    }
    return false;
}

// The theme changes while the wave runs; the test goes on.
TourStep darkStep()
{
    return {QStringLiteral("voice test, a voice: the theme changes while it runs"),
            [](TourDriver &driver) {
                driver.setDark(true);
                return wave(driver) ? QString() : QStringLiteral("the test is over");
            },
            QStringLiteral("voice-running-dark")};
}

// How far the coloured wave rises above the focus ring in the window's picture, in pixels; 0 when
// there is none.
int waveHeight(TourDriver &driver)
{
    constexpr int focusRing = 6;        // px, inside the widget
    constexpr int leastSaturation = 40; // 0 to 255; backgrounds are nearly grey
    const QWidget *widget = wave(driver);
    if (!widget)
        return 0;
    const QPoint corner = widget->mapTo(driver.window(), QPoint());
    const QRect inside =
        QRect(corner, widget->size()).adjusted(focusRing, focusRing, -focusRing, -focusRing);
    const QImage picture = driver.grab();
    const qreal scale = picture.devicePixelRatio();
    const QImage drawn = picture.copy(QRect(inside.topLeft() * scale, inside.size() * scale));
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x)
            if (drawn.pixelColor(x, y).saturation() > leastSaturation)
                return qRound((drawn.height() - y) / scale);
    }
    return 0;
}

TourStep waveStep()
{
    return {QStringLiteral("voice test, a voice: the wave rises with it"),
            [](TourDriver &driver) {
                const bool risen = driver.waitFor(
                    [&] { return !wave(driver) || waveHeight(driver) >= clearlyRisen; },
                    longestTest);
                return risen && wave(driver) ? QString() : QStringLiteral("the wave stays flat");
            },
            QStringLiteral("voice-wave")};
}

TourSteps spokenTestSteps()
{
    return {{QStringLiteral("voice test, a voice: start"),
             [](TourDriver &driver) { return startTest(driver, QStringLiteral("speech")); },
             QString()},
            waveStep(),
            {QStringLiteral("voice test, a voice: words are recognised while it runs"),
             [](TourDriver &driver) {
                 const bool recognised = driver.waitFor(
                     [&] { return wordsRecognised(driver) || !wave(driver); }, longestTest);
                 if (!recognised || !wave(driver))
                     return QStringLiteral("no words before the test was over");
                 // For the picture alone: the voice may pause just now.
                 driver.waitFor([&] { return waveHeight(driver) >= clearlyRisen; }, longestPause);
                 return QString();
             },
             QStringLiteral("voice-running")},
            darkStep(),
            {QStringLiteral("voice test, a voice: the verdict"),
             [](TourDriver &driver) {
                 driver.setDark(false);
                 QString problem = awaitVerdict(driver, translated("It sounds good"), longestTest);
                 if (problem.isEmpty() && !wordsRecognised(driver))
                     return QStringLiteral("the recognised words are gone");
                 return problem;
             },
             QStringLiteral("voice-good")},
            {QStringLiteral("voice test, a voice: the verdict in the dark"),
             [](TourDriver &driver) {
                 driver.setDark(true);
                 return againLink(driver) ? QString() : QStringLiteral("the verdict is gone");
             },
             QStringLiteral("voice-good-dark")},
            {QStringLiteral("go back to the light theme"),
             [](TourDriver &driver) {
                 driver.setDark(false);
                 return QString();
             },
             QString()}};
}

TourStep verdictStep(const QString &microphone, const char *verdict)
{
    return {QStringLiteral("voice test, %1").arg(microphone),
            [microphone, verdict](TourDriver &driver) {
                QString problem = startTest(driver, microphone);
                return problem.isEmpty() ? awaitVerdict(driver, translated(verdict), longestTest)
                                         : problem;
            },
            QStringLiteral("voice-") + microphone};
}

TourStep unpluggedStep()
{
    return {QStringLiteral("voice test, no microphone"),
            [](TourDriver &driver) {
                QString problem = setMicrophone(pluggedKey, false);
                if (problem.isEmpty())
                    problem = startTest(driver, QStringLiteral("silence"));
                if (problem.isEmpty())
                    problem = awaitVerdict(driver, translated("No sound recorded"), longestTest);
                const QString left = setMicrophone(pluggedKey, true);
                return problem.isEmpty() ? left : problem;
            },
            QStringLiteral("voice-unplugged")};
}

TourStep cancelledStep()
{
    return {QStringLiteral("voice test, cancelled by a click on the wave"),
            [](TourDriver &driver) {
                QString problem = startTest(driver, QStringLiteral("silence"));
                if (!problem.isEmpty())
                    return problem;
                const QWidget *target = wave(driver);
                const ControlCenterWindow *window = driver.window();
                QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                                  target->mapTo(window, target->rect().center()));
                driver.settle();
                return firstLink(driver) && !wave(driver)
                           ? QString()
                           : QStringLiteral("the panel is not back at its beginning");
            },
            QStringLiteral("voice-cancelled")};
}

TourStep offlineStep()
{
    return {QStringLiteral("voice test, without network"),
            [](TourDriver &driver) {
                sandbox::ServiceControl network(QStringLiteral("networkmanager"),
                                                QDBusConnection::systemBus());
                if (!network.setValue(QStringLiteral("state"), networkDisconnected))
                    return network.error();
                QString problem = pressLink(driver);
                if (problem.isEmpty())
                    problem =
                        awaitVerdict(driver, translated("Network unavailable"), longestReaction);
                if (!network.setValue(QStringLiteral("state"), networkConnected))
                    return network.error();
                return problem;
            },
            QStringLiteral("voice-offline")};
}

TourStep refusedStep()
{
    return {
        QStringLiteral("voice test, refused by the AI service"),
        [](TourDriver &driver) {
            constexpr int refusal = 1; // any error code but 0
            sandbox::ServiceControl service(QStringLiteral("aiservice"));
            if (!service.script(QStringLiteral("createSession"), QStringLiteral("reply-list"),
                                QVariantList{QVariant::fromValue(QDBusObjectPath("/")), refusal}))
                return service.error();
            QString problem = pressLink(driver);
            if (problem.isEmpty())
                problem = awaitVerdict(driver, translated("Service exception"), longestReaction);
            if (!service.reset())
                return service.error();
            return problem;
        },
        QStringLiteral("voice-refused")};
}

} // namespace

TourSteps voiceSteps(const ControlCenterWindow *)
{
    return spokenTestSteps() +
           TourSteps{
               verdictStep(QStringLiteral("loud"), "Turn down the input volume and try again"),
               verdictStep(QStringLiteral("quiet"), "Turn up the input volume and try again"),
               verdictStep(QStringLiteral("noise"), "Too many noises"),
               verdictStep(QStringLiteral("silence"), "No sound recorded"),
               unpluggedStep(),
               cancelledStep(),
               offlineStep(),
               refusedStep()};
}

} // namespace controlcenter
