#pragma once

#include <zcc/frameproxyinterface.h>
#include <zcc/moduleinterface.h>

#include <QObject>

namespace controlcenter {

class ModuleRegistry;
class ModuleView;

/**
 * The control center's frame: opens and leaves modules in the documented order of calls, and puts
 * what they push into the view.
 *
 * A page is often built while its constructor waits for a service and processes events, so a push
 * may come from a module that the user has left meanwhile; such a widget is disposed of unseen.
 * Outlives every module.
 */
class Frame : public QObject, public zccV20::FrameProxyInterface
{
    Q_OBJECT

public:
    /** Neither @p registry nor @p view is owned; both outlive the frame. */
    Frame(ModuleRegistry *registry, ModuleView *view, QObject *parent = nullptr);

    /** Hands the frame to @p module and lets it register its names. Once per module. */
    void prepare(zccV20::ModuleInterface *module);

    /** Opens @p module at its first page; a module that is open starts afresh. */
    void open(zccV20::ModuleInterface *module);

    /** Opens the page @p page (untranslated name) of @p module. */
    void openPage(zccV20::ModuleInterface *module, const QString &page);

    /** Leaves the open module, if any, and disposes of its widgets. */
    void leave();

    void pushWidget(zccV20::ModuleInterface *module, QWidget *widget, PushType type) override;
    void addPageTranslation(const QString &page, const QString &translated) override;
    void addSearchModule(const QString &moduleName, const QString &page, bool present) override;
    void addSearchItem(const QString &moduleName, const QString &page, const QString &item,
                       bool present) override;

Q_SIGNALS:
    /** Another page is shown; @p title is its translated name, as the module's list shows it. */
    void pageShown(const QString &title);

private:
    int listWidth() const;

    ModuleRegistry *m_registry;
    ModuleView *m_view;
    zccV20::ModuleInterface *m_active = nullptr;
};

} // namespace controlcenter
