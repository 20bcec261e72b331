#include "sandbox/controlcenter/contrastcheck.h"

#include "sandbox/controlcenter/pagecontrols.h"

#include <ztk/zpainting.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr qreal leastText = 4.5;
constexpr qreal leastLargeText = 3;
constexpr qreal leastOutline = 3;
constexpr qreal leastHighContrast = 7; // of anything, in the theme that is called so
constexpr int largeText = 24;          // px
constexpr int largeBoldText = 19;      // px
constexpr int frameWidth = 4;          // px, in which a control's frame or its fill begins
constexpr int switchMargin = 4;        // px, around a switch's track

// What the module's tips are drawn in, by the desktop's rules.
const QRgb tipColors[] = {0xff8aa1b4, 0xffc0c6d4};

qreal least(qreal usual)
{
    return ZPainting::isHighContrast() ? leastHighContrast : usual;
}

// What a rectangle of the picture shows.
struct Colors
{
    QColor ground; // the most frequent one
    QColor ink;    // the one that stands out most
};

class ContrastCheck
{
public:
    ContrastCheck(const QWidget *window, const QImage &picture)
        : m_window(window)
        , m_picture(picture)
    {
        visit(window);
    }

    QVector<LookProblem> problems;

private:
    void visit(const QWidget *widget);
    void checkControl(const QWidget *widget);
    void checkList(const QListView *list);
    void checkText(const QWidget *of, const QRect &rect, const QString &text);
    void checkOutline(const QWidget *of, const QRect &rect, const QString &text);
    QRect placeOf(const QWidget *widget, const QRect &rect) const;
    QRect pixels(const QRect &place) const;
    Colors colorsIn(const QRect &place) const;

    const QWidget *m_window;
    const QImage m_picture;
};

void ContrastCheck::visit(const QWidget *widget)
{
    if (const auto *list = qobject_cast<const QListView *>(widget))
        return checkList(list);
    checkControl(widget);
    if (qobject_cast<const QComboBox *>(widget) || qobject_cast<const QLineEdit *>(widget))
        return;
    for (const QObject *child : widget->children()) {
        const auto *part = qobject_cast<const QWidget *>(child);
        if (part && !part->isWindow() && part->isVisibleTo(widget))
            visit(part);
    }
}

void ContrastCheck::checkControl(const QWidget *widget)
{
    const QRect inside = widget->rect().adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        if (!label->text().isEmpty())
            checkText(label, label->rect(), label->text());
    } else if (const auto *box = qobject_cast<const QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        if (!box->currentText().isEmpty())
            checkText(box,
                      box->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                   QStyle::SC_ComboBoxEditField, box),
                      box->currentText());
        checkOutline(box, box->rect(), box->currentText());
    } else if (const auto *edit = qobject_cast<const QLineEdit *>(widget)) {
        checkText(edit, inside, edit->text());
        checkOutline(edit, edit->rect(), edit->text());
    } else if (const auto *check = qobject_cast<const QCheckBox *>(widget)) {
        QStyleOptionButton option;
        option.initFrom(check);
        const QStyle *style = check->style();
        checkText(check, style->subElementRect(QStyle::SE_CheckBoxContents, &option, check),
                  check->text());
        checkOutline(check, style->subElementRect(QStyle::SE_CheckBoxIndicator, &option, check),
                     check->text());
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        if (!button->text().isEmpty() || !button->icon().isNull())
            checkText(button, inside, button->text());
        const auto *push = qobject_cast<const QPushButton *>(widget);
        if (push && !push->isFlat())
            checkOutline(button, button->rect(), button->text());
        if (widget->inherits("zcc::widgets::SwitchButton"))
            checkOutline(button, button->rect().adjusted(switchMargin, 0, -switchMargin, 0),
                         button->accessibleName());
    } else if (widget->inherits("KeyLabel")) {
        const QString cap = accessibleNameOf(const_cast<QWidget *>(widget));
        checkText(widget, inside, cap);
        checkOutline(widget, widget->rect(), cap);
    }
}

void ContrastCheck::checkList(const QListView *list)
{
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        const QRect place = list->visualRect(index);
        if (!list->viewport()->rect().contains(place))
            continue;
        const QString text = index.data().toString();
        checkText(list->viewport(), place, text);
        if (list->selectionModel()->isSelected(index))
            checkOutline(list->viewport(), place, text);
    }
}

void ContrastCheck::checkText(const QWidget *of, const QRect &rect, const QString &text)
{
    const QRect place = placeOf(of, rect);
    if (!of->isEnabled() || place.isEmpty() || place.size() != rect.size())
        return; // of what is seen in part, the text may be the other one
    const Colors colors = colorsIn(place);
    for (const QRgb tip : tipColors)
        if (of->palette().color(QPalette::Text).rgb() == tip)
            return;
    const int size = QFontInfo(of->font()).pixelSize();
    const bool large = size >= largeText || (size >= largeBoldText && of->font().bold());
    const qreal contrast = ZPainting::contrast(colors.ground, colors.ink);
    if (contrast < least(large ? leastLargeText : leastText))
        problems.append(
            {place,
             QStringLiteral("\"%1\" has a contrast of %2 : 1").arg(text).arg(contrast, 0, 'f', 2)});
}

// The frame, or the fill where there is none, against what lies around.
void ContrastCheck::checkOutline(const QWidget *of, const QRect &rect, const QString &text)
{
    const QRect place = placeOf(of, rect);
    if (place.isEmpty() || place.size() != rect.size())
        return;
    const QRect around = pixels(place);
    const int middle = around.center().y();
    qreal best = 0;
    // On one side: the mark of a chosen row stands on its leading side only.
    for (const bool left : {true, false}) {
        const int edge = left ? around.left() : around.right();
        const int inwards = left ? 1 : -1;
        const int outside = qBound(0, edge - inwards, m_picture.width() - 1);
        const QColor ground = m_picture.pixelColor(outside, middle);
        for (int i = 0; i < frameWidth * m_picture.devicePixelRatioF(); ++i)
            best =
                qMax(best,
                     ZPainting::contrast(ground, m_picture.pixelColor(edge + i * inwards, middle)));
    }
    if (best < least(leastOutline))
        problems.append({place, QStringLiteral("the outline of \"%1\" has a contrast of %2 : 1")
                                    .arg(text)
                                    .arg(best, 0, 'f', 2)});
}

// Where a part of a widget is seen on the window; empty where it is scrolled away or covered.
QRect ContrastCheck::placeOf(const QWidget *widget, const QRect &rect) const
{
    QRect seen = rect;
    const QWidget *above = widget;
    while (above != m_window) {
        seen &= above->rect();
        seen.translate(above->pos());
        above = above->parentWidget();
    }
    seen &= m_window->rect();
    for (const QPoint &point : {seen.topLeft(), seen.center(), seen.bottomRight()}) {
        const QWidget *top = m_window->childAt(point);
        if (top && top != widget && !top->isAncestorOf(widget) && !widget->isAncestorOf(top))
            return QRect();
    }
    return seen;
}

QRect ContrastCheck::pixels(const QRect &place) const
{
    const qreal scale = m_picture.devicePixelRatioF();
    return QRect((place.topLeft() * scale), place.size() * scale) & m_picture.rect();
}

Colors ContrastCheck::colorsIn(const QRect &place) const
{
    const QRect area = pixels(place);
    QHash<QRgb, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            ++counts[m_picture.pixel(x, y)];
    Colors colors;
    int most = 0;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        if (count.value() > most) {
            most = count.value();
            colors.ground = QColor(count.key());
        }
    colors.ink = colors.ground;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        if (ZPainting::contrast(colors.ground, QColor(count.key())) >
            ZPainting::contrast(colors.ground, colors.ink))
            colors.ink = QColor(count.key());
    return colors;
}

} // namespace

QVector<LookProblem> contrastProblems(const QWidget *window, const QImage &picture)
{
    return ContrastCheck(window, picture).problems;
}

} // namespace controlcenter
