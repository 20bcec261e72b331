#include "sandbox/controlcenter/layoutcheck.h"

#include <zcc/widgets/settingsgroup.h>
#include <zcc/widgets/settingsitem.h>
#include <ztk/zfontsizemanager.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>

#include <cmath>

using zcc::widgets::SettingsGroup;
using zcc::widgets::SettingsItem;
using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

constexpr int leastHitHeight = 36;  // px
constexpr int rowEdge = 10;         // px, from the row's edges to its text and its control
constexpr int switchRing = 4;       // px, kept free around a switch's track
constexpr int lineEditPadding = 2;  // px, of Qt's own, on either side of the text
constexpr int tallEnough = 1 << 20; // px, for any text

constexpr char overlay[] = "overlay"; // property

QString describe(const QWidget *widget, const QString &text = QString())
{
    const QString name = text.isEmpty() ? widget->accessibleName() : text;
    return QStringLiteral("%1 \"%2\"")
        .arg(QString::fromLatin1(widget->metaObject()->className()), name);
}

// The size of a text that may be this many pixels wide; a wider word makes it wider.
QSize textSize(const QFont &font, const QString &text, int width, int flags)
{
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, tallEnough), flags, text).size();
}

// Where a label draws its text.
QRect textRoom(const QLabel *label)
{
    const int margin = label->margin();
    QRect room = label->contentsRect().adjusted(margin, margin, -margin, -margin);
    const Qt::Alignment side =
        QStyle::visualAlignment(label->layoutDirection(), label->alignment());
    const int indent = qMax(0, label->indent());
    if (side & Qt::AlignLeft)
        room.setLeft(room.left() + indent);
    else if (side & Qt::AlignRight)
        room.setRight(room.right() - indent);
    return room;
}

QRect comboBoxField(const QComboBox *box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField,
                                        box);
}

class Check
{
public:
    explicit Check(const QWidget *window)
        : m_window(window)
    {
        visit(window);
    }

    QVector<LookProblem> problems;

private:
    void visit(const QWidget *widget);
    void fail(const QWidget *widget, const QString &what, const QString &text = QString())
    {
        const QPoint corner = widget->mapTo(const_cast<QWidget *>(m_window), QPoint());
        problems.append(
            {QRect(corner, widget->size()), describe(widget, text) + QStringLiteral(": ") + what});
    }
    void checkLabel(const QLabel *label);
    void checkComboBox(const QComboBox *box);
    void checkLineEdit(const QLineEdit *edit);
    void checkList(const QListView *list);
    void checkButton(const QAbstractButton *button);
    void checkPlace(const QWidget *parent, const QList<const QWidget *> &children);
    void checkTarget(const QWidget *widget);
    void checkRow(const SettingsItem *row);
    int distance(const SettingsItem *row, const QWidget *of, const QRect &rect, bool leading) const;

    const QWidget *m_window;
};

void Check::visit(const QWidget *widget)
{
    checkTarget(widget);
    if (widget->property(overlay).toBool() && widget->width() < widget->sizeHint().width())
        fail(widget, QStringLiteral("is narrower than what it shows"));
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        checkLabel(label);
    else if (const auto *box = qobject_cast<const QComboBox *>(widget))
        return checkComboBox(box);
    else if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return checkLineEdit(edit);
    else if (const auto *list = qobject_cast<const QListView *>(widget))
        return checkList(list);
    else if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        checkButton(button);
    else if (const auto *row = qobject_cast<const SettingsItem *>(widget))
        checkRow(row);

    QList<const QWidget *> children;
    for (const QObject *child : widget->children()) {
        const auto *part = qobject_cast<const QWidget *>(child);
        if (part && !part->isWindow() && part->isVisibleTo(widget))
            children.append(part);
    }
    checkPlace(widget, children);
    for (const QWidget *child : qAsConst(children))
        visit(child);
}

void Check::checkLabel(const QLabel *label)
{
    if (label->text().isEmpty())
        return;
    const QRect room = textRoom(label);
    const int flags = label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
    const QSize needed = textSize(label->font(), label->text(), room.width(), flags);
    if (needed.width() > room.width() || needed.height() > room.height())
        fail(label,
             QStringLiteral("%1x%2 px of text in %3x%4")
                 .arg(needed.width())
                 .arg(needed.height())
                 .arg(room.width())
                 .arg(room.height()),
             label->text());
}

void Check::checkComboBox(const QComboBox *box)
{
    const int room = comboBoxField(box).width();
    for (int i = 0; i < box->count(); ++i) {
        const int needed = box->fontMetrics().horizontalAdvance(box->itemText(i));
        if (needed > room)
            fail(box, QStringLiteral("%1 px of text in %2").arg(needed).arg(room),
                 box->itemText(i));
    }
    if (box->height() < box->sizeHint().height())
        fail(box, QStringLiteral("is lower than its text"), box->currentText());
}

void Check::checkLineEdit(const QLineEdit *edit)
{
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.lineWidth = 1;
    const QMargins margins = edit->textMargins();
    const int room = edit->style()
                         ->subElementRect(QStyle::SE_LineEditContents, &option, edit)
                         .marginsRemoved(margins)
                         .width() -
                     2 * lineEditPadding;
    const QFontMetrics metrics(edit->font());
    const int needed = metrics.horizontalAdvance(edit->placeholderText());
    if (needed > room)
        fail(edit, QStringLiteral("%1 px of text in %2").arg(needed).arg(room));
    // The placeholder is drawn in one line of the font, and cut off where it is higher.
    if (metrics.tightBoundingRect(edit->placeholderText()).height() > metrics.height())
        fail(edit, QStringLiteral("the letters are higher than the line"));
}

void Check::checkList(const QListView *list)
{
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        const QString text = index.data().toString();
        const QRect place = list->visualRect(index);
        if (place.width() > list->viewport()->width())
            fail(list, QStringLiteral("the row is wider than the list"), text);
        const int icon = ZFontSizeManager::instance()->scaled(list->iconSize().width());
        const int besideText = icon > 0 ? icon + 3 * rowEdge : 2 * rowEdge;
        const QSize needed =
            textSize(list->font(), text, place.width() - besideText, Qt::TextWordWrap);
        if (needed.width() > place.width() - besideText || needed.height() > place.height())
            fail(list,
                 QStringLiteral("%1x%2 px of text in a row of %3x%4")
                     .arg(needed.width())
                     .arg(needed.height())
                     .arg(place.width())
                     .arg(place.height()),
                 text);
        if (place.height() < leastHitHeight)
            fail(list, QStringLiteral("the row is %1 px high").arg(place.height()), text);
    }
}

void Check::checkButton(const QAbstractButton *button)
{
    if (button->text().isEmpty())
        return;
    const QSize needed = button->sizeHint();
    if (button->width() < needed.width() || button->height() < needed.height())
        fail(button, QStringLiteral("is smaller than its text"), button->text());
}

void Check::checkPlace(const QWidget *parent, const QList<const QWidget *> &children)
{
    // A scrolled widget is larger than what is seen of it.
    const bool scrolls = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget());
    for (int i = 0; i < children.size(); ++i) {
        const QWidget *child = children.at(i);
        if (!scrolls && !parent->rect().contains(child->geometry()))
            fail(child, QStringLiteral("sticks out of %1").arg(describe(parent)));
        if (scrolls && (child->width() < child->minimumSizeHint().width() ||
                        child->height() < child->minimumSizeHint().height()))
            fail(child, QStringLiteral("is squeezed instead of scrolled"));
        for (int j = i + 1; j < children.size(); ++j)
            if (child->geometry().intersects(children.at(j)->geometry()) &&
                !child->property(overlay).toBool() && !children.at(j)->property(overlay).toBool())
                fail(child, QStringLiteral("lies over %1").arg(describe(children.at(j))));
    }
}

void Check::checkTarget(const QWidget *widget)
{
    if (!(widget->focusPolicy() & Qt::TabFocus) || widget->isWindow() || widget->focusProxy() ||
        qobject_cast<const QAbstractScrollArea *>(widget))
        return;
    // Those in rows of shortcuts have the size that hosts expect.
    if (widget->inherits("Ztk::Widget::ZIconButton"))
        return;
    // A click anywhere in a switch's row flips it.
    const QWidget *target =
        widget->inherits("zcc::widgets::SwitchButton") ? widget->parentWidget() : widget;
    if (target->height() < leastHitHeight)
        fail(widget, QStringLiteral("a target %1 px high").arg(target->height()));
}

// From the row's edge to that of a part of one of its widgets, on one of its two sides.
int Check::distance(const SettingsItem *row, const QWidget *of, const QRect &rect,
                    bool leading) const
{
    const QRect place(of->mapTo(const_cast<SettingsItem *>(row), rect.topLeft()), rect.size());
    const bool left = leading == (row->layoutDirection() == Qt::LeftToRight);
    return left ? place.left() : row->width() - 1 - place.right();
}

void Check::checkRow(const SettingsItem *row)
{
    const auto expectEdge = [&](const QWidget *of, const QRect &rect, bool leading) {
        const int found = distance(row, of, rect, leading);
        if (found != rowEdge)
            fail(of, QStringLiteral("stands %1 px from the row's %2 edge")
                         .arg(found)
                         .arg(leading ? QStringLiteral("leading") : QStringLiteral("trailing")));
    };

    const QWidget *control = nullptr;
    QRect shape;
    const QLabel *title = nullptr;
    for (const QObject *child : row->children()) {
        const auto *part = qobject_cast<const QWidget *>(child);
        if (!part || !part->isVisibleTo(row))
            continue;
        if (qobject_cast<const QComboBox *>(part)) {
            control = part;
            shape = part->rect();
        } else if (part->inherits("zcc::widgets::SwitchButton")) {
            control = part;
            shape = part->rect().adjusted(switchRing, switchRing, -switchRing, -switchRing);
        } else if (const auto *label = qobject_cast<const QLabel *>(part)) {
            title = label;
        } else if (const auto *box = qobject_cast<const QCheckBox *>(part)) {
            QStyleOptionButton option;
            option.initFrom(box);
            const QRect indicator =
                box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
            const auto *outer = qobject_cast<const SettingsItem *>(row->parentWidget());
            const int found = distance(outer ? outer : row, box, indicator, true);
            if (found != rowEdge)
                fail(box, QStringLiteral("its mark stands %1 px from the edge").arg(found));
        }
    }
    if (!control || !title)
        return;
    expectEdge(title, textRoom(title), true);
    expectEdge(control, shape, false);
    if (control->geometry().top() > title->geometry().bottom())
        return; // below each other
    const int apart = std::abs(title->geometry().center().y() - control->geometry().center().y());
    if (apart > 1)
        fail(title, QStringLiteral("stands %1 px off its control's middle").arg(apart),
             title->text());
    // One size of letters in the middle of one row: their baselines meet.
    if (qobject_cast<const QComboBox *>(control) &&
        title->fontMetrics().ascent() != control->fontMetrics().ascent())
        fail(title, QStringLiteral("has another baseline than its control"), title->text());
}

} // namespace

QStringList textsOf(const QVector<LookProblem> &problems)
{
    QStringList texts;
    for (const LookProblem &problem : problems)
        texts.append(problem.text);
    return texts;
}

QVector<LookProblem> layoutProblems(const QWidget *window)
{
    return Check(window).problems;
}

void setOverlay(QWidget *widget)
{
    widget->setProperty(overlay, true);
}

} // namespace controlcenter
