#include "plugin/tavrenaiassitantcontrolplugin.h"

#include "plugin/catalogue.h"
#include "plugin/pagetable.h"
#include "plugin/thirdlistwidget.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>
#include <QTranslator>

namespace {

// The first push shows the list, later ones a page beside it. The value is contract; what the
// desktop's header calls it is not.
constexpr auto pushBesideList = static_cast<zccV20::FrameProxyInterface::PushType>(2);

} // namespace

TavrenAIAssitantControlPlugin::TavrenAIAssitantControlPlugin()
    : m_translator(new QTranslator)
{
    installTranslatorForSystemLocale();
}

void TavrenAIAssitantControlPlugin::installTranslatorForSystemLocale()
{
    const QString file = catalogueFile(QLocale::system().name());
    if (file.isEmpty())
        return;
    // Installed whether or not the file could be read: a missing one leaves the source language.
    m_translator->load(file);
    QCoreApplication::installTranslator(m_translator);
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
    for (const PageEntry &page : pageTable())
        connect(list, page.requested, this, [this, entry = &page] { showNewPage(*entry); });
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

    const QVector<PageEntry> &pages = pageTable();
    int row = AssistantRow;
    for (int i = 0; i < pages.size(); ++i)
        if (path == QLatin1String(pages.at(i).name))
            row = i;
    if (m_listWidget)
        m_listWidget->updateListViewIndex(row);
    return 0;
}

QStringList TavrenAIAssitantControlPlugin::availPage() const
{
    QStringList names;
    for (const PageRow row : shortNameOrder)
        names.append(QString::fromLatin1(pageTable().at(row).shortName));
    return names;
}

QString TavrenAIAssitantControlPlugin::path() const
{
    return QStringLiteral("mainwindow");
}

QString TavrenAIAssitantControlPlugin::follow() const
{
    return QStringLiteral("keyboard");
}

void TavrenAIAssitantControlPlugin::addChildPageTrans() const
{
    if (!m_frameProxy)
        return;
    for (const PageRow row : breadcrumbOrder) {
        const char *name = pageTable().at(row).name;
        m_frameProxy->addPageTranslation(QString::fromLatin1(name), tr(name));
    }
}

void TavrenAIAssitantControlPlugin::initSearchData()
{
    if (!m_frameProxy)
        return;
    const QString moduleName = displayName();
    for (const PageEntry &page : pageTable()) {
        m_frameProxy->addSearchModule(moduleName, tr(page.name), true);
        for (const char *setting : page.settings)
            m_frameProxy->addSearchItem(moduleName, tr(page.name), tr(setting), true);
    }
}

void TavrenAIAssitantControlPlugin::showAssistantWidget()
{
    showNewPage(pageTable().at(AssistantRow));
}

void TavrenAIAssitantControlPlugin::showVoiceIatWidget()
{
    showNewPage(pageTable().at(SpeechToTextRow));
}

void TavrenAIAssitantControlPlugin::showVoiceTtsWidget()
{
    showNewPage(pageTable().at(TextToSpeechRow));
}

void TavrenAIAssitantControlPlugin::showTranslateWidget()
{
    showNewPage(pageTable().at(TranslationRow));
}

void TavrenAIAssitantControlPlugin::push(QWidget *widget)
{
    if (m_frameProxy)
        m_frameProxy->pushWidget(this, widget, pushBesideList);
    else
        delete widget; // nobody else would ever own it
}

void TavrenAIAssitantControlPlugin::showNewPage(const PageEntry &page)
{
    // A page's constructor waits for services while events are processed. Meanwhile another row may
    // be chosen, which runs this function again, or the host may drop the plugin.
    const QPointer<TavrenAIAssitantControlPlugin> self(this);
    QWidget *widget = page.newPage(); // the frame's from push() on
    if (self)
        push(widget);
    else
        delete widget;
}
