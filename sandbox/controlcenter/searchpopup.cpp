#include "sandbox/controlcenter/searchpopup.h"

#include "sandbox/controlcenter/layoutcheck.h"
#include "sandbox/controlcenter/search.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>

#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QVBoxLayout>

using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int leastPopupWidth = 380; // px
constexpr int visibleRows = 8;
constexpr int border = 6;         // px between card and rows
constexpr qreal popupRadius = 10; // px

constexpr int whereRole = Qt::UserRole + 1;
constexpr int queryRole = Qt::UserRole + 2;
constexpr int usualResultIcon = 20; // px
constexpr int iconGap = 10;         // px
constexpr int paddingX = 12;        // px
constexpr int paddingY = 6;         // px
constexpr int lineGap = 2;          // px
constexpr qreal rowRadius = 7;      // px

int resultIcon()
{
    return ZFontSizeManager::instance()->scaled(usualResultIcon);
}

QFont whereFont(const QFont &base)
{
    return ZFontSizeManager::instance()->get(ZFontSizeManager::T7, base);
}

// The height of the line as it is drawn: some scripts need more than the font's usual height.
int lineHeight(const QFont &font, const QString &text)
{
    const QFontMetrics metrics(font);
    return qMax(metrics.height(), metrics.boundingRect(QRect(), Qt::TextSingleLine, text).height());
}

// The colours of one line: its text, the letters that were looked for, and what is behind these.
struct LineColors
{
    QColor text;
    QColor match;
    QColor mark;
};

// Draws one line of text from the leading edge of @p room, with the words of @p query marked. The
// letters keep their shapes: in many scripts these depend on the letters beside them.
void drawMarked(QPainter *painter, const QRect &room, Qt::Alignment side, const QFont &font,
                const QString &text, const QString &query, const LineColors &colors)
{
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, room.width());
    QTextOption option(side & Qt::AlignHorizontal_Mask);
    option.setTextDirection(painter->layoutDirection());
    option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(shown, font);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(room.width());
    layout.endLayout();

    QVector<QTextLayout::FormatRange> marks;
    for (const TextPart &part : matchedParts(shown, query)) {
        QTextCharFormat format;
        format.setForeground(colors.match);
        format.setBackground(colors.mark);
        marks.append({part.start, part.length, format});
    }
    const qreal top =
        side & Qt::AlignBottom ? room.top() + room.height() - line.height() : room.top();
    painter->setPen(colors.text);
    layout.draw(painter, QPointF(room.left(), top), marks);
}

// Draws one search result: its icon, the setting's name, and below it where it is.
class SearchResultDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

void SearchResultDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette &palette = option.palette;
    const bool selected = option.state & QStyle::State_Selected;

    QColor name = palette.color(QPalette::Text);
    QColor where = secondaryTextColor(palette);
    QColor match = palette.color(QPalette::Link);
    QColor mark = ZPainting::blend(palette.color(QPalette::Base), match, 0.14);
    if (selected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.color(QPalette::Highlight));
        painter->drawRoundedRect(option.rect, rowRadius, rowRadius);
        name = palette.color(QPalette::HighlightedText);
        where = name;
        match = name;
        mark = ZPainting::blend(palette.color(QPalette::Highlight),
                                name.lightness() > 127 ? Qt::black : Qt::white, 0.3);
    } else if (option.state & QStyle::State_MouseOver) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(ZPainting::blend(palette.color(QPalette::Base), name, 0.06));
        painter->drawRoundedRect(option.rect, rowRadius, rowRadius);
    }

    const QRect inner = option.rect.adjusted(paddingX, paddingY, -paddingX, -paddingY);
    const auto place = [&](const QRect &rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };
    const int side = resultIcon();
    const QRect icon(inner.left(), inner.center().y() - side / 2 + 1, side, side);
    ZPainting::drawIcon(painter, place(icon), index.data(Qt::DecorationRole).value<QIcon>(), name);

    const QRect room = place(inner.adjusted(side + iconGap, 0, 0, 0));
    const QString query = index.data(queryRole).toString();
    painter->setLayoutDirection(option.direction);
    const Qt::Alignment lead = QStyle::visualAlignment(option.direction, Qt::AlignLeading);
    drawMarked(painter, room, lead | Qt::AlignTop, option.font,
               index.data(Qt::DisplayRole).toString(), query, {name, match, mark});
    drawMarked(painter, room, lead | Qt::AlignBottom, whereFont(option.font),
               index.data(whereRole).toString(), query, {where, match, mark});
    painter->restore();
}

QSize SearchResultDelegate::sizeHint(const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    const int name = lineHeight(option.font, index.data(Qt::DisplayRole).toString());
    const int where = lineHeight(whereFont(option.font), index.data(whereRole).toString());
    return {0, name + lineGap + where + 2 * paddingY};
}

} // namespace

SearchPopup::SearchPopup(QWidget *window)
    : QFrame(window)
    , m_model(new QStandardItemModel(this))
    , m_list(new QListView(this))
    , m_empty(new QLabel(tr("Nothing found"), this))
{
    m_list->setModel(m_model);
    m_list->setItemDelegate(new SearchResultDelegate(m_list));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setMouseTracking(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setAccessibleName(tr("Search results"));
    connect(m_list, &QListView::clicked, this, &SearchPopup::acceptSelection);

    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setMinimumHeight(64);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(border, border, border, border);
    layout->addWidget(m_list);
    layout->addWidget(m_empty);

    auto *shadow = new QGraphicsDropShadowEffect(this);
    shadow->setBlurRadius(28);
    shadow->setOffset(0, 6);
    shadow->setColor(QColor(0, 0, 0, 80));
    setGraphicsEffect(shadow);
    setOverlay(this);
    hide();
}

void SearchPopup::showResults(const QVector<SearchEntry> &entries, const QString &query)
{
    m_entries = entries;
    m_model->clear();
    for (const SearchEntry &entry : entries) {
        auto *row = new QStandardItem(entry.icon, entry.item.isEmpty() ? entry.page : entry.item);
        const QString where =
            entry.item.isEmpty() ? entry.module : entry.module + QStringLiteral(" › ") + entry.page;
        row->setData(where, whereRole);
        row->setData(query, queryRole);
        row->setData(row->text() + QStringLiteral(", ") + where, Qt::AccessibleTextRole);
        m_model->appendRow(row);
    }
    m_list->setVisible(!entries.isEmpty());
    m_empty->setVisible(entries.isEmpty());
    m_list->setCurrentIndex(m_model->index(0, 0));
    resize(sizeHint());
    raise();
    show();
}

void SearchPopup::moveSelection(int rows)
{
    const int row = qBound(0, m_list->currentIndex().row() + rows, m_model->rowCount() - 1);
    m_list->setCurrentIndex(m_model->index(row, 0));
}

void SearchPopup::acceptSelection()
{
    const int row = m_list->currentIndex().row();
    if (row >= 0 && row < m_entries.size())
        Q_EMIT chosen(m_entries.at(row));
}

QString SearchPopup::description() const
{
    if (m_entries.isEmpty())
        return m_empty->text();
    return m_list->currentIndex().data(Qt::AccessibleTextRole).toString();
}

QSize SearchPopup::sizeHint() const
{
    int width = leastPopupWidth;
    if (m_entries.isEmpty())
        return {width, m_empty->minimumHeight() + 2 * border};
    const QFontMetrics names(m_list->font());
    const QFontMetrics places(whereFont(m_list->font()));
    const int besideText = 2 * border + 2 * paddingX + resultIcon() + iconGap + lineGap;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QStandardItem *item = m_model->item(row);
        width = qMax(width, besideText + names.horizontalAdvance(item->text()));
        width =
            qMax(width, besideText + places.horizontalAdvance(item->data(whereRole).toString()));
    }
    const int rows = qMin(visibleRows, m_model->rowCount());
    return {width, rows * m_list->sizeHintForRow(0) + 2 * border};
}

void SearchPopup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(separatorColor(palette()));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), popupRadius,
                            popupRadius);
}

} // namespace controlcenter
