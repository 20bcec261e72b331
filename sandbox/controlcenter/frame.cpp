#include "sandbox/controlcenter/frame.h"

#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/moduleview.h"

#include <ztk/zfontsizemanager.h>

#include <QDebug>
#include <QFontMetrics>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {

Frame::Frame(ModuleRegistry *registry, ModuleView *view, QObject *parent)
    : QObject(parent)
    , m_registry(registry)
    , m_view(view)
{
    connect(m_view, &ModuleView::taken, this, [this](QWidget *widget) {
        if (m_active)
            m_active->contentPopped(widget);
    });
}

void Frame::prepare(zccV20::ModuleInterface *module)
{
    module->setFrameProxy(this);
    module->preInitialize(true, NextColumn);
    module->initialize();
}

void Frame::open(zccV20::ModuleInterface *module)
{
    leave();
    m_active = module;
    module->active();
}

void Frame::openPage(zccV20::ModuleInterface *module, const QString &page)
{
    if (m_active != module)
        open(module);
    if (m_active == module) // the user may have gone elsewhere while the first page was built
        module->load(page);
}

void Frame::leave()
{
    if (!m_active)
        return;
    m_active->deactive();
    m_view->clear();
    m_active = nullptr;
}

void Frame::pushWidget(zccV20::ModuleInterface *module, QWidget *widget, PushType type)
{
    if (!widget)
        return;
    if (module != m_active || type != NextColumn) {
        if (type != NextColumn)
            qWarning() << "this window shows columns only, not push type" << type;
        widget->deleteLater();
        return;
    }
    if (!m_view->list()) {
        m_view->setList(widget, listWidth());
        return;
    }
    m_view->setPage(widget);
    Q_EMIT pageShown(m_view->currentRowText());
}

void Frame::addPageTranslation(const QString &page, const QString &translated)
{
    m_registry->addPage(page, translated);
}

void Frame::addSearchModule(const QString &moduleName, const QString &page, bool present)
{
    m_registry->addSearchEntry({moduleName, page, QString()}, present);
}

void Frame::addSearchItem(const QString &moduleName, const QString &page, const QString &item,
                          bool present)
{
    m_registry->addSearchEntry({moduleName, page, item}, present);
}

int Frame::listWidth() const
{
    constexpr int least = 230;                       // px
    constexpr int most = 360;                        // px, with usual texts
    constexpr int icon = 32;                         // px, with usual texts
    constexpr int aroundText = 2 * 10 + 2 * 10 + 24; // px: item margins, list margins, gaps
    const ZFontSizeManager *sizes = ZFontSizeManager::instance();
    const QFontMetrics metrics(m_view->font());
    int text = 0;
    for (const QString &page : m_registry->pages())
        text = qMax(text, metrics.horizontalAdvance(m_registry->translatedPage(page)));
    return qBound(least, text + sizes->scaled(icon) + aroundText, sizes->scaled(most));
}

} // namespace controlcenter
