#include "bench/suite.h"
#include "contracts/contract.h"
#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "proxy/assistantstateproxy.h"
#include "tests/support/busrecorder.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <zcc/widgets/switchwidget.h>
#include <zcc/widgets/tipslabel.h>
#include <ztk/zcommandlinkbutton.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <memory>

using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using zcc::widgets::SwitchWidget;
using zcc::widgets::TipsLabel;
using Ztk::Widget::ZCommandLinkButton;

namespace {

constexpr QSize pageSize(600, 560);

struct BareCall
{
    Contract::Method method;
    QVariantList arguments;
};

void callAll(const QVector<BareCall> &calls)
{
    for (const BareCall &call : calls) {
        const Contract::Object &object = call.method.object;
        QDBusMessage message = QDBusMessage::createMethodCall(object.service, object.path,
                                                              object.interface, call.method.name);
        message.setArguments(call.arguments);
        QDBusConnection::sessionBus().call(message);
    }
}

BareCall shortcut(const char *id)
{
    return {Contract::Keybinding::GetShortcut(), {QLatin1String(id), 0}};
}

// A page of the same widgets as the module's, which does nothing.
class BarePage : public QWidget
{
public:
    BarePage()
        : m_layout(new QVBoxLayout(this))
        , m_group(new SettingsGroup)
    {
        m_layout->setContentsMargins(10, 10, 10, 10);
    }

    void addTip(const QString &text)
    {
        auto *tip = new TipsLabel(text, this);
        tip->setWordWrap(true);
        m_layout->addWidget(tip);
    }

    void addGroup() { m_layout->addWidget(m_group); }

    void addSwitch(const QString &title) { m_group->appendItem(new SwitchWidget(title)); }

    void addList(const QString &title, const QStringList &entries)
    {
        auto *list = new QComboBox;
        list->addItems(entries);
        addItem(new QHBoxLayout, {new QLabel(title), list});
    }

    void addItem(QBoxLayout *layout, const QVector<QWidget *> &widgets)
    {
        auto *item = new SettingsItem;
        item->addBackground();
        item->setLayout(layout);
        for (QWidget *widget : widgets)
            layout->addWidget(widget);
        m_group->appendItem(item);
    }

    void finish() { m_layout->addStretch(); }

private:
    QVBoxLayout *m_layout;
    SettingsGroup *m_group;
};

void fillAssistant(BarePage &page)
{
    page.addTip(
        QStringLiteral("AI Assistant boosts your productivity by executing voice commands, such as "
                       "checking the weather, creating events, etc."));
    page.addGroup();
    page.addSwitch(QStringLiteral("Voice Wakeup"));
    page.addItem(new QVBoxLayout, {new QCheckBox(QStringLiteral("OneShot"))});
    page.addList(QStringLiteral("Language"), {QStringLiteral("中文-普通话")});
    page.addSwitch(QStringLiteral("Show in the Dock"));
    page.addItem(new QVBoxLayout, {new QLabel(QStringLiteral("Microphone Test")),
                                   new ZCommandLinkButton(QStringLiteral("Click here to test"))});
}

void fillSpeechToText(BarePage &page)
{
    page.addTip(QStringLiteral(
        "Press the shortcuts (Ctrl+Alt+T) or click \"Speech to Text\" in the context "
        "menu to convert your speech to text."));
    page.addGroup();
    page.addSwitch(QStringLiteral("Speech to Text"));
    page.addList(QStringLiteral("Language"),
                 {QStringLiteral("中文-普通话"), QStringLiteral("English")});
}

void fillTextToSpeech(BarePage &page)
{
    page.addTip(QStringLiteral(
        "Press the shortcuts (Ctrl+Alt+T) or click \"Text to Speech\" in the context "
        "menu to read the selected text out."));
    page.addGroup();
    page.addSwitch(QStringLiteral("Text to Speech"));
    page.addSwitch(QStringLiteral("Show Speech Widget"));
    page.addList(QStringLiteral("Voice Gender"),
                 {QStringLiteral("Female"), QStringLiteral("Male"), QStringLiteral("Children")});
}

void fillTranslation(BarePage &page)
{
    page.addTip(QStringLiteral(
        "Press the shortcuts (Ctrl+Alt+T) or click \"Translate\" in the context menu "
        "to translate the selected text."));
    page.addGroup();
    page.addSwitch(QStringLiteral("Text Translation"));
    page.addList(QStringLiteral("Language"),
                 {QStringLiteral("Chinese"), QStringLiteral("English")});
}

// Shows a page in the window that a control center has already, until it is painted.
void showIn(QWidget &window, QWidget *page)
{
    window.layout()->addWidget(page);
    page->show();
    QCoreApplication::sendPostedEvents();
    page->repaint();
}

template <typename Page>
Ratio opening(QWidget &window, const QString &name, const QVector<BareCall> &calls,
              void (*fillBarePage)(BarePage &))
{
    Comparison what;
    what.name = name;
    what.subject = QStringLiteral("opening the page until it is painted");
    what.baseline = QStringLiteral("its calls on the bus, and the same widgets that do nothing");
    what.unit = QStringLiteral("ms");
    what.aim = 1.3;
    what.rounds = 30;
    what.measureSubject = [&] {
        std::unique_ptr<QWidget> page;
        return timedMs([&] {
            page = std::make_unique<Page>(nullptr);
            showIn(window, page.get());
        });
    };
    what.measureBaseline = [&] {
        std::unique_ptr<BarePage> page;
        return timedMs([&] {
            callAll(calls);
            page = std::make_unique<BarePage>();
            fillBarePage(*page);
            page->finish();
            showIn(window, page.get());
        });
    };
    return compare(what);
}

// Both sides are counts: what was sent, and what the contract asks for.
Ratio messages(const QString &name, const QString &subject, int wanted,
               const std::function<int(testsupport::BusRecorder &)> &count)
{
    Comparison what;
    what.name = name;
    what.subject = subject;
    what.baseline = QStringLiteral("the contract's count");
    what.unit = QStringLiteral("messages");
    what.aim = 1.0;
    what.measureSubject = [&count] {
        testsupport::BusRecorder recorder;
        if (!recorder.start())
            qFatal("the bus cannot be recorded");
        return double(count(recorder));
    };
    what.measureBaseline = [wanted] {
        return double(wanted);
    };
    return compare(what);
}

} // namespace

void benchPages(const Report &report)
{
    QWidget window;
    window.setLayout(new QVBoxLayout);
    window.resize(pageSize);
    window.show();
    QCoreApplication::processEvents();

    report(opening<AssistantSettingWidget>(window, QStringLiteral("assistant page"),
                                           {{Contract::DockIcon::getDockHideStatus(), {}}},
                                           fillAssistant));
    report(opening<VoiceIatSettingWidget>(window, QStringLiteral("speech to text page"),
                                          {shortcut("speech-to-text"),
                                           {Contract::SpeechToText::getIatEnable(), {}},
                                           {Contract::SpeechToText::getIatLanguage(), {}}},
                                          fillSpeechToText));
    report(opening<VoiceTTSSettingWidget>(window, QStringLiteral("text to speech page"),
                                          {shortcut("text-to-speech"),
                                           {Contract::TextToSpeech::getTTSEnable(), {}},
                                           {Contract::TextToSpeech::getEnableWindow(), {}},
                                           {Contract::TextToSpeech::getSpeaker(), {}}},
                                          fillTextToSpeech));
    report(opening<TextTranslateSettingWidget>(window, QStringLiteral("translation page"),
                                               {shortcut("translation"),
                                                {Contract::Translation::getTransEnable(), {}},
                                                {Contract::Translation::getTransLanguage(), {}}},
                                               fillTranslation));

    report(messages(QStringLiteral("messages, pages"),
                    QStringLiteral("calls to services while the four pages open"), 11,
                    [](testsupport::BusRecorder &recorder) {
                        AssistantSettingWidget(nullptr).ensurePolished();
                        VoiceIatSettingWidget(nullptr).ensurePolished();
                        VoiceTTSSettingWidget(nullptr).ensurePolished();
                        TextTranslateSettingWidget(nullptr).ensurePolished();
                        recorder.sync();
                        return recorder.calls().size();
                    }));
    report(messages(QStringLiteral("messages, write"),
                    QStringLiteral("all that is sent for a write, the bus daemon's included"), 1,
                    [](testsupport::BusRecorder &recorder) {
                        AssistantStateProxy::setVoiceIatState(true);
                        recorder.sync();
                        return recorder.calls().size() + recorder.daemonCalls().size();
                    }));
}
