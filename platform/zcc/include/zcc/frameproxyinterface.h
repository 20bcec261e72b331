#pragma once

#include <QString>

class QWidget;

namespace zccV20 {

class ModuleInterface;

/**
 * The control center's frame, as a module sees it: where widgets go and where names are registered.
 *
 * The control center implements it, hands it to each module with ModuleInterface::setFrameProxy()
 * before preInitialize(), and keeps it alive for as long as the module. All calls are made on the
 * GUI thread. Binary contract: the four operations stand in exactly this order in the table and
 * nothing stands before them, which is why there is no virtual destructor; a module never deletes
 * the proxy.
 */
class FrameProxyInterface
{
public:
    /** Where a pushed widget appears. */
    enum PushType {
        FullWindow = 0, ///< In place of everything that the module shows.
        Overlay = 1,    ///< Above the module's current page, with a way back.
        NextColumn = 2, ///< First push: the module's list. Later pushes: the page beside the list.
    };

    /**
     * Shows @p widget for @p module. The widget has no parent; the frame owns it from here on and
     * destroys it when it is replaced or the window closes. Called whenever the user navigates.
     */
    virtual void pushWidget(ModuleInterface *module, QWidget *widget, PushType type) = 0;

    /** Registers the translated name of the page @p page for the breadcrumb. Called at start-up. */
    virtual void addPageTranslation(const QString &page, const QString &translated) = 0;

    /**
     * Registers one page of a module with the search. @p present says whether it can be found now.
     * All names are translated. Called at start-up.
     */
    virtual void addSearchModule(const QString &moduleName, const QString &page, bool present) = 0;

    /** Registers one setting of a page with the search; otherwise like addSearchModule(). */
    virtual void addSearchItem(const QString &moduleName, const QString &page, const QString &item,
                               bool present) = 0;

protected:
    ~FrameProxyInterface() = default;
};

} // namespace zccV20
