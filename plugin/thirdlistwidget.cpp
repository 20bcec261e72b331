#include "plugin/thirdlistwidget.h"

#include "plugin/assistzlistview.h"

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
    const QList<QPair<const char *, QString>> rows = {
        {"zcc_nav_assistant_nor", tr("Desktop AI Assistant")},
        {"zcc_nav_dictate_nor", tr("Speech to Text")},
        {"zcc_nav_read_nor", tr("Text to Speech")},
        {"zcc_nav_translate_nor", tr("Translation")},
    };
    for (const auto &row : rows) {
        auto *item = new Ztk::Widget::ZStandardItem(
            QIcon::fromTheme(QString::fromLatin1(row.first)), row.second);
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
    switch (row) {
    case 1:
        Q_EMIT signalShowVoiceIat();
        break;
    case 2:
        Q_EMIT signalShowVoiceTTS();
        break;
    case 3:
        Q_EMIT signalShowTranslate();
        break;
    default:
        Q_EMIT signalShowAIAssistant();
        break;
    }
}

void ThirdListWidget::updateListViewIndex(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    m_listView->setCurrentIndex(index);
    onItemClieck(index);
}
