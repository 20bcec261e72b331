#include "tests/support/fakeframe.h"

#include <QHBoxLayout>
#include <QtTest>

namespace testsupport {

FakeFrame::FakeFrame(Disposal disposal)
    : m_disposal(disposal)
    , m_window(std::make_unique<QWidget>())
{
    m_window->setObjectName(QStringLiteral("fakeFrame"));
    m_window->resize(900, 700);
    new QHBoxLayout(m_window.get());
}

FakeFrame::~FakeFrame() = default;

void FakeFrame::pushWidget(zccV20::ModuleInterface *module, QWidget *widget, PushType type)
{
    m_pushes.append({module, widget, QString::fromLatin1(widget->metaObject()->className()),
                     widget->parent() != nullptr, type});
    m_window->layout()->addWidget(widget);
    if (!m_list) {
        m_list = widget;
        return;
    }
    if (m_page) {
        m_page->hide();
        m_window->layout()->removeWidget(m_page);
        if (m_disposal == OnReplacement)
            m_page->deleteLater();
        else
            m_replaced.append(m_page);
    }
    m_page = widget;
}

void FakeFrame::addPageTranslation(const QString &page, const QString &translated)
{
    m_registrations.append({Registration::PageTranslation, {page, translated}, false});
}

void FakeFrame::addSearchModule(const QString &moduleName, const QString &page, bool present)
{
    m_registrations.append({Registration::SearchModule, {moduleName, page}, present});
}

void FakeFrame::addSearchItem(const QString &moduleName, const QString &page, const QString &item,
                              bool present)
{
    m_registrations.append({Registration::SearchItem, {moduleName, page, item}, present});
}

const QList<FakeFrame::Push> &FakeFrame::pushes() const
{
    return m_pushes;
}

const QList<FakeFrame::Registration> &FakeFrame::registrations() const
{
    return m_registrations;
}

QStringList FakeFrame::pushedClasses() const
{
    QStringList classes;
    for (const Push &push : m_pushes)
        classes.append(push.className);
    return classes;
}

QWidget *FakeFrame::list() const
{
    return m_list;
}

QWidget *FakeFrame::page() const
{
    return m_page;
}

QWidget *FakeFrame::window() const
{
    return m_window.get();
}

bool FakeFrame::showActive()
{
    m_window->show();
    m_window->activateWindow();
    return QTest::qWaitForWindowActive(m_window.get());
}

void FakeFrame::disposeReplaced()
{
    for (const QPointer<QWidget> &widget : qAsConst(m_replaced))
        delete widget;
    m_replaced.clear();
}

void FakeFrame::disposeAll()
{
    disposeReplaced();
    delete m_page;
    delete m_list;
}

void FakeFrame::clearRecords()
{
    m_pushes.clear();
    m_registrations.clear();
}

} // namespace testsupport
