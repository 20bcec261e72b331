#pragma once

#include <zcc/moduleinterface.h>

#include <QObject>
#include <QPointer>

class QTranslator;
class ThirdListWidget;
struct PageEntry;

/**
 * The plugin's root object: one entry of the control center, "Assistive Tools".
 *
 * Routing only: it hands the frame a navigation list and, for each row chosen, a freshly built
 * page. The frame owns and destroys whatever was pushed; of that only the list is observed here.
 * GUI thread only. The class name is part of the plugin's metadata; its spelling must stay.
 */
class TavrenAIAssitantControlPlugin : public QObject, public zccV20::ModuleInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZCC_MODULE_INTERFACE_IID FILE "tavrenaiassitantcontrolplugin.json")
    Q_INTERFACES(zccV20::ModuleInterface)

public:
    TavrenAIAssitantControlPlugin();

    void preInitialize(bool sync, zccV20::FrameProxyInterface::PushType type) override;
    void initialize() override;
    void reset() override;
    QString name() const override;
    QString displayName() const override;
    QIcon icon() const override;
    QString translationPath() const override;
    void contentPopped(QWidget *widget) override;
    void active() override;
    void deactive() override;

    /**
     * Selects the row of the untranslated page name @p path, as if the user had clicked it; any
     * other text selects the first row. Does nothing before active(). Always returns 0.
     */
    int load(const QString &path) override;

    QStringList availPage() const override;
    QString path() const override;
    QString follow() const override;
    void addChildPageTrans() const override;
    void initSearchData() override;

public Q_SLOTS:
    void showAssistantWidget();
    void showVoiceIatWidget();
    void showVoiceTtsWidget();
    void showTranslateWidget();

private:
    void installTranslatorForSystemLocale();
    void push(QWidget *widget);
    void showNewPage(const PageEntry &page);

    QPointer<ThirdListWidget> m_listWidget;
    QTranslator *m_translator = nullptr; // never deleted: the host may translate without the plugin
};
