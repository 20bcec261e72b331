#include "plugin/thirdlistwidget.h"

#include "plugin/assistzlistview.h"
#include "plugin/pagetable.h"

#include <ztk/zstandarditem.h>

#include <QDebug>
#include <QMargins>
#include <QStandardItemModel>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(QMargins)

ThirdListWidget::ThirdListWidget(QWidget *parent)
    : QWidget(parent)
{
    init();
}

ThirdListWidget::~ThirdListWidget()
{
    qDebug() << "~ThirdListWidget";
}

void ThirdListWidget::init()
{
    setObjectName(QStringLiteral("voice"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    m_listView = new AssistZListView(this);
    layout->addWidget(m_listView);
    setLayout(layout);

    if (!m_model)
        m_model = new QStandardItemModel(m_listView);

    // Qt keeps icons by name for as long as the application lives: a literal's text would go with
    // this library.
    for (const PageEntry &page : pageTable()) {
        auto *item = new Ztk::Widget::ZStandardItem(
            QIcon::fromTheme(QString::fromLatin1(page.iconName)), tr(page.rowText));
        item->setData(QVariant::fromValue(QMargins(10, 8, 10, 8)),
                      Ztk::Widget::ZListView::MarginsRole);
        m_model->appendRow(item);
    }

    m_listView->setAccessibleName(tr("Assistive Tools"));
    m_listView->setFrameShape(QFrame::NoFrame);
    m_listView->setModel(m_model);
    m_listView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_listView->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_listView->setCurrentIndex(m_model->index(0, 0));
    m_listView->setIconSize(QSize(32, 32));
    m_listView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    connect(m_listView, &QListView::clicked, this, &ThirdListWidget::onItemClieck);
    // Activation by keyboard counts as a click.
    connect(m_listView, &QListView::activated, m_listView, &QListView::clicked);
}

void ThirdListWidget::onItemClieck(const QModelIndex &index)
{
    // The view handles the key or click that asks for the page and must have finished when the page
    // is built: the list may go meanwhile.
    m_listView->runLast([this, row = index.row()] { requestPage(row); });
}

void ThirdListWidget::requestPage(int row)
{
    const QVector<PageEntry> &pages = pageTable();
    if (row < 0 || row >= pages.size())
        row = AssistantRow;
    (this->*pages.at(row).requested)();
}

void ThirdListWidget::updateListViewIndex(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    m_listView->setCurrentIndex(index);
    onItemClieck(index);
}
