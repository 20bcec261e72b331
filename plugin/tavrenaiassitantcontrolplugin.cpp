#include "plugin/tavrenaiassitantcontrolplugin.h"

#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "plugin/thirdlistwidget.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>
#include <QTranslator>

namespace {

constexpr auto pushBesideList = zccV20::FrameProxyInterface::NextColumn;

} // namespace

TavrenAIAssitantControlPlugin::TavrenAIAssitantControlPlugin()
    : m_translator(new QTranslator)
{
    installTranslatorForSystemLocale();
}

void TavrenAIAssitantControlPlugin::installTranslatorForSystemLocale()
{
    // Keys are searched inside the locale's name, in this order. The English file's doubled "a" is
    // the name under which the translation package installs it.
    static const struct
    {
        const char *key;
        const char *fileName;
    } catalogues[] = {
        {"zh_CN", "assistant-control-plugin_zh_CN.qm"},
        {"zh_HK", "assistant-control-plugin_zh_HK.qm"},
        {"zh_TW", "assistant-control-plugin_zh_TW.qm"},
        {"bo", "assistant-control-plugin_bo.qm"},
        {"en", "aassistant-control-plugin_en.qm"},
        {"ug", "assistant-control-plugin_ug.qm"},
    };

    const QString locale = QLocale::system().name();
    for (const auto &catalogue : catalogues) {
        if (!locale.contains(QLatin1String(catalogue.key)))
            continue;
        // Installed whether or not the file could be read: a missing one leaves the source
        // language.
        m_translator->load(QStringLiteral("/usr/share/TavrenAIAssistant/translations/") +
                           QLatin1String(catalogue.fileName));
        QCoreApplication::installTranslator(m_translator);
        return;
    }
}

void TavrenAIAssitantControlPlugin::preInitialize(bool, zccV20::FrameProxyInterface::PushType)
{
    qDebug() << "preInitialize";
    addChildPageTrans();
    initSearchData();
}

void TavrenAIAssitantControlPlugin::initialize()
{
    qDebug() << "initialize" << QLocale::system().name();
}

void TavrenAIAssitantControlPlugin::reset()
{
    qDebug() << "reset";
}

QString TavrenAIAssitantControlPlugin::name() const
{
    return QStringLiteral("voice");
}

QString TavrenAIAssitantControlPlugin::displayName() const
{
    //: The module's name in the control center's navigation.
    return tr("Assistive Tools");
}

QIcon TavrenAIAssitantControlPlugin::icon() const
{
    // Not a string literal, which would go with this library: Qt keeps the name.
    return QIcon::fromTheme(QString::fromLatin1("zcc_nav_voice"));
}

QString TavrenAIAssitantControlPlugin::translationPath() const
{
    qDebug() << "translationPath";
    return QStringLiteral(":/translation/assistant-control-plugin_%1.ts");
}

void TavrenAIAssitantControlPlugin::contentPopped(QWidget *) {}

void TavrenAIAssitantControlPlugin::active()
{
    qDebug() << "active";

    auto *list = new ThirdListWidget(nullptr); // the frame's from push() on
    m_listWidget = list;
    connect(list, &ThirdListWidget::signalShowAIAssistant, this,
            &TavrenAIAssitantControlPlugin::showAssistantWidget);
    connect(list, &ThirdListWidget::signalShowVoiceIat, this,
            &TavrenAIAssitantControlPlugin::showVoiceIatWidget);
    connect(list, &ThirdListWidget::signalShowVoiceTTS, this,
            &TavrenAIAssitantControlPlugin::showVoiceTtsWidget);
    connect(list, &ThirdListWidget::signalShowTranslate, this,
            &TavrenAIAssitantControlPlugin::showTranslateWidget);
    push(list);

    showAssistantWidget();
}

void TavrenAIAssitantControlPlugin::deactive()
{
    qDebug() << "deactive";
}

int TavrenAIAssitantControlPlugin::load(const QString &path)
{
    qDebug() << "load" << path;

    static const QStringList pageNames = {
        QStringLiteral("Desktop AI Assistant"),
        QStringLiteral("Speech to Text"),
        QStringLiteral("Text to Speech"),
        QStringLiteral("Translation"),
    };
    if (m_listWidget)
        m_listWidget->updateListViewIndex(qMax(0, pageNames.indexOf(path)));
    return 0;
}

QStringList TavrenAIAssitantControlPlugin::availPage() const
{
    return {QStringLiteral("assistant"), QStringLiteral("translation"), QStringLiteral("iat"),
            QStringLiteral("tts")};
}

QString TavrenAIAssitantControlPlugin::path() const
{
    return QStringLiteral("mainwindow");
}

QString TavrenAIAssitantControlPlugin::follow() const
{
    return QStringLiteral("keyboard");
}

void TavrenAIAssitantControlPlugin::showAssistantWidget()
{
    showNewPage(m_assistantPage);
}

void TavrenAIAssitantControlPlugin::showVoiceIatWidget()
{
    showNewPage(m_voiceIatPage);
}

void TavrenAIAssitantControlPlugin::showVoiceTtsWidget()
{
    showNewPage(m_voiceTtsPage);
}

void TavrenAIAssitantControlPlugin::showTranslateWidget()
{
    showNewPage(m_translatePage);
}

void TavrenAIAssitantControlPlugin::push(QWidget *widget)
{
    if (m_frameProxy)
        m_frameProxy->pushWidget(this, widget, pushBesideList);
    else
        delete widget; // nobody else would ever own it
}

template <typename Page>
void TavrenAIAssitantControlPlugin::showNewPage(QPointer<Page> &page)
{
    // A page's constructor waits for services while events are processed. Meanwhile another row may
    // be chosen, which runs this function again, or the host may drop the plugin.
    const QPointer<TavrenAIAssitantControlPlugin> self(this);
    auto *newPage = new Page(nullptr); // the frame's from push() on
    if (!self) {
        delete newPage;
        return;
    }
    page = newPage;
    push(newPage);
}
