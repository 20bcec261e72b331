#include "sandbox/controlcenter/navigationcolumn.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>
#include <ztk/zstandarditem.h>

#include <QApplication>
#include <QEvent>
#include <QMargins>
#include <QPainter>
#include <QStandardItemModel>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(QMargins)

using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int nameRole = Ztk::Widget::ZListView::MarginsRole + 1;
constexpr int iconSide = 24;   // px
constexpr int aroundText = 46; // px: margins of the row, and the gap behind the icon
constexpr int markWidth = 4;   // px, of the line at the open entry's leading edge

} // namespace

NavigationColumn::NavigationColumn(QWidget *parent)
    : Ztk::Widget::ZListView(parent)
    , m_model(new QStandardItemModel(this))
{
    setModel(m_model);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    setIconSize({iconSide, iconSide});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Settings"));
    updateColors();
}

void NavigationColumn::addEntry(const QString &name, const QString &text, const QIcon &icon,
                                const QString &follow)
{
    auto *item = new Ztk::Widget::ZStandardItem(icon, text);
    item->setData(name, nameRole);
    item->setData(QVariant::fromValue(QMargins(10, 8, 10, 8)), MarginsRole);
    const int before = rowOf(follow);
    m_model->insertRow(before < 0 ? m_model->rowCount() : before + 1, item);
}

void NavigationColumn::setCurrentEntry(const QString &name)
{
    setCurrentIndex(m_model->index(rowOf(name), 0));
}

QString NavigationColumn::currentEntry() const
{
    return currentIndex().data(nameRole).toString();
}

QString NavigationColumn::entryText(const QString &name) const
{
    return m_model->index(rowOf(name), 0).data(Qt::DisplayRole).toString();
}

QSize NavigationColumn::sizeHint() const
{
    int text = 0;
    for (int row = 0; row < m_model->rowCount(); ++row)
        text = qMax(text, fontMetrics().horizontalAdvance(m_model->item(row)->text()));
    return {text + Ztk::Widget::ZFontSizeManager::instance()->scaled(iconSide) + aroundText,
            Ztk::Widget::ZListView::sizeHint().height()};
}

void NavigationColumn::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    Ztk::Widget::ZListView::currentChanged(current, previous);
    if (current.isValid())
        Q_EMIT entryOpened(current.data(nameRole).toString());
}

void NavigationColumn::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColors();
    Ztk::Widget::ZListView::changeEvent(event);
}

void NavigationColumn::paintEvent(QPaintEvent *event)
{
    Ztk::Widget::ZListView::paintEvent(event);
    const QRect row = visualRect(currentIndex());
    if (row.isEmpty())
        return;
    const QRect mark = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                           QSize(markWidth, row.height() / 2), row);
    QPainter painter(viewport());
    ZPainting::fillRounded(&painter, mark, markWidth / 2.0,
                           QApplication::palette().color(QPalette::Highlight));
}

// The open entry's ground is quiet: a strong one belongs to the page's own list beside it. A line
// at the leading edge is what everybody sees.
void NavigationColumn::updateColors()
{
    const QPalette theme = QApplication::palette();
    QPalette own = palette();
    own.setColor(QPalette::Highlight, ZPainting::blend(theme.color(QPalette::Window),
                                                       theme.color(QPalette::WindowText), 0.12));
    own.setColor(QPalette::HighlightedText, theme.color(QPalette::WindowText));
    if (own != palette())
        setPalette(own);
}

int NavigationColumn::rowOf(const QString &name) const
{
    const QModelIndexList found =
        m_model->match(m_model->index(0, 0), nameRole, name, 1, Qt::MatchExactly);
    return found.isEmpty() ? -1 : found.first().row();
}

namespace {

constexpr int leastWidth = 228; // px
constexpr int sideMargin = 12;  // px

} // namespace

SideBar::SideBar(QWidget *search, QWidget *entries, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(sideMargin, sideMargin, sideMargin, sideMargin);
    layout->setSpacing(sideMargin);
    layout->addWidget(search);
    layout->addWidget(entries, 1);
}

QSize SideBar::sizeHint() const
{
    return QWidget::sizeHint().expandedTo(QSize(leastWidth, 0));
}

void SideBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), sideBarColor(palette()));
    const int edge = layoutDirection() == Qt::RightToLeft ? 0 : width() - 1;
    painter.fillRect(edge, 0, 1, height(), separatorColor(palette()));
}

} // namespace controlcenter
