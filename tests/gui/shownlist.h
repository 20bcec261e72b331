#pragma once

#include "plugin/assistzlistview.h"
#include "plugin/thirdlistwidget.h"
#include "tests/support/modulepages.h"

#include <QMetaMethod>
#include <QtTest>

namespace testsupport {

/** The short names of the pages for which the list asks, in order. */
class PageRequests : public QObject
{
    Q_OBJECT

public:
    explicit PageRequests(ThirdListWidget *list)
    {
        for (const ModulePage &page : modulePages())
            connect(list, qPrintable(QStringLiteral("2") + page.requestSignal), this, SLOT(note()));
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(m_requests);
        return taken;
    }

private Q_SLOTS:
    void note()
    {
        const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
        for (const ModulePage &page : modulePages())
            if (page.requestSignal == QLatin1String(signal.methodSignature()))
                m_requests.append(page.shortName);
    }

private:
    QStringList m_requests;
};

/** The list on the screen, with the focus on its view. */
struct ShownList
{
    std::unique_ptr<ThirdListWidget> list = std::make_unique<ThirdListWidget>(nullptr);
    std::unique_ptr<PageRequests> requests = std::make_unique<PageRequests>(list.get());
    AssistZListView *view = list->findChild<AssistZListView *>();

    /** False when it does not get the focus. */
    bool show()
    {
        list->resize(240, 400);
        list->show();
        list->activateWindow();
        if (!QTest::qWaitForWindowActive(list.get()))
            return false;
        view->setFocus();
        return view->hasFocus();
    }

    static int lastRow() { return modulePages().size() - 1; }
    int currentRow() const { return view->currentIndex().row(); }
    void setCurrentRow(int row) { view->setCurrentIndex(view->model()->index(row, 0)); }
};

} // namespace testsupport
