#pragma once

#include "zcc/frameproxyinterface.h"

#include <QIcon>
#include <QObject>
#include <QString>
#include <QStringList>

class QWidget;

namespace zccV20 {

/**
 * One module of the control center, as the control center drives it.
 *
 * A module is a Qt plugin whose root object implements this interface. The control center calls
 * everything on the GUI thread, in this order: setFrameProxy(), preInitialize(), initialize();
 * then, each time the user opens the module, active() (followed by load() when a certain page is
 * wanted); deactive() when the user leaves it.
 *
 * Binary contract: the destructor pair, then the nineteen operations in exactly this order.
 */
class ModuleInterface
{
public:
    virtual ~ModuleInterface() = default;

    /**
     * Called once, before the module's entry is shown, with the frame proxy set. The module
     * registers its page names and search entries here. @p sync is false when the control center
     * prepares its modules in the background; @p type is where the module's first widget will be
     * pushed.
     */
    virtual void
    preInitialize(bool sync = false,
                  FrameProxyInterface::PushType type = FrameProxyInterface::NextColumn) = 0;

    /** Called once, after preInitialize(). */
    virtual void initialize() = 0;

    /** Called when the user asks the control center to put the module's settings back. */
    virtual void reset() = 0;

    /** Internal, untranslated name of the module; its key in the control center. */
    virtual QString name() const = 0;

    /** Translated name of the module's entry. */
    virtual QString displayName() const = 0;

    /** Icon of the module's entry. */
    virtual QIcon icon() const = 0;

    /** Pattern of the module's TS files, with "%1" for the locale; read for the search texts. */
    virtual QString translationPath() const = 0;

    /** Asks the module to show the page @p pageName in its own way. The base does nothing. */
    virtual void showPage(const QString &pageName) { Q_UNUSED(pageName) }

    /**
     * A widget of the module that the control center embeds itself, or null when the module pushes
     * its widgets. The base returns null. The control center owns what comes back.
     */
    virtual QWidget *moduleWidget() { return nullptr; }

    /** Called after the frame has taken @p widget away; the frame destroys it. */
    virtual void contentPopped(QWidget *widget) = 0;

    /** Called each time the user opens the module; it pushes its first widget now. */
    virtual void active() = 0;

    /** Called each time the user leaves the module. */
    virtual void deactive() = 0;

    /** Opens the page @p path (untranslated). Called after active(). Returns 0 when it is shown. */
    virtual int load(const QString &path) = 0;

    /** Short names of the module's pages, for links from outside. */
    virtual QStringList availPage() const = 0;

    /** The control center's section in which the entry stands. */
    virtual QString path() const = 0;

    /** Internal name of the module behind which the entry stands. */
    virtual QString follow() const = 0;

    /** Whether the entry can be opened. The base returns true. */
    virtual bool enabled() const { return true; }

    /** Registers the module's page names with the frame proxy; part of preInitialize(). */
    virtual void addChildPageTrans() const = 0;

    /** Registers the module's search entries with the frame proxy; part of preInitialize(). */
    virtual void initSearchData() = 0;

    /** Called once by the control center before preInitialize(); the module does not own @p proxy.
     */
    void setFrameProxy(FrameProxyInterface *proxy) { m_frameProxy = proxy; }

protected:
    FrameProxyInterface *m_frameProxy =
        nullptr; ///< Not owned; null until the control center set it.
};

} // namespace zccV20

#define ZCC_MODULE_INTERFACE_IID "com.tavren.zde.ControlCenter.module/1.0"
Q_DECLARE_INTERFACE(zccV20::ModuleInterface, ZCC_MODULE_INTERFACE_IID)
