#pragma once

#include <zcc/frameproxyinterface.h>

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

namespace testsupport {

/**
 * The control center's frame as far as a module can see it: records what is pushed and registered,
 * in order, and owns what is pushed.
 *
 * Pushed widgets go into a window, side by side: the first push is the list, the next ones are
 * pages, of which each replaces the one before. The replaced page is deleted the way a frame does
 * it, with deleteLater(), unless the test wants to decide when.
 */
class FakeFrame final : public zccV20::FrameProxyInterface
{
public:
    enum Disposal {
        OnReplacement, ///< A replaced page is scheduled for deletion at once.
        OnDemand, ///< All widgets live until disposeReplaced(), disposeAll() or the frame's end.
    };

    struct Push
    {
        zccV20::ModuleInterface *module;
        QPointer<QWidget> widget;
        QString className; ///< Of the widget.
        bool hadParent;    ///< When it was pushed.
        PushType type;
    };

    struct Registration
    {
        enum Kind { PageTranslation, SearchModule, SearchItem };
        Kind kind;
        QStringList texts; ///< The texts of the call in its order.
        bool present;      ///< Of the search registrations.
    };

    explicit FakeFrame(Disposal disposal = OnReplacement);
    ~FakeFrame();

    void pushWidget(zccV20::ModuleInterface *module, QWidget *widget, PushType type) override;
    void addPageTranslation(const QString &page, const QString &translated) override;
    void addSearchModule(const QString &moduleName, const QString &page, bool present) override;
    void addSearchItem(const QString &moduleName, const QString &page, const QString &item,
                       bool present) override;

    const QList<Push> &pushes() const;
    const QList<Registration> &registrations() const;

    /** The class names of the pushed widgets, in order. */
    QStringList pushedClasses() const;

    /** The first widget pushed since the window was opened; null when there is none. */
    QWidget *list() const;

    /** The latest page; null when only the list, or nothing, was pushed or the page is gone. */
    QWidget *page() const;

    /** The same as a T; null when it is something else. */
    template <typename T>
    T *pageAs() const
    {
        return qobject_cast<T *>(page());
    }

    /** The window with list and page; not shown by itself. */
    QWidget *window() const;

    /** Shows the window and makes it active, so that keys reach it. False if that fails. */
    bool showActive();

    /** Deletes the pages that were replaced, at once. */
    void disposeReplaced();

    /** Deletes every pushed widget that still lives, at once: the window closes. */
    void disposeAll();

    /** Forgets pushes and registrations; widgets stay. */
    void clearRecords();

private:
    Disposal m_disposal;
    std::unique_ptr<QWidget> m_window;
    QList<Push> m_pushes;
    QList<Registration> m_registrations;
    QPointer<QWidget> m_list;
    QPointer<QWidget> m_page;
    QList<QPointer<QWidget>> m_replaced;
};

} // namespace testsupport
