#include "sandbox/controlcenter/pagecontrols.h"

#include <QApplication>

#include <algorithm>

namespace controlcenter {
namespace {

bool isControl(QWidget *widget)
{
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    return accessible &&
           (isControlRole(accessible->role()) || widget->focusPolicy() & Qt::TabFocus);
}

// A combo box shows its list and its line edit as children; the user operates the box.
bool isPartOfControl(const QWidget *widget, const QWidget *page)
{
    for (QWidget *above = widget->parentWidget(); above && above != page;
         above = above->parentWidget()) {
        if (isControl(above))
            return true;
    }
    return false;
}

} // namespace

bool isControlRole(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Animation: // the wave of a voice test, which a click ends
    case QAccessible::Button:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::Link:
    case QAccessible::List:
        return true;
    default:
        return false;
    }
}

QVector<QWidget *> controlsOf(QWidget *page)
{
    QVector<QWidget *> controls;
    for (QWidget *widget = page->nextInFocusChain(); widget != page;
         widget = widget->nextInFocusChain()) {
        if (page->isAncestorOf(widget) && widget->isVisibleTo(page) && widget->isEnabled() &&
            isControl(widget) && !isPartOfControl(widget, page))
            controls.append(widget);
    }
    return controls;
}

QString accessibleNameOf(QWidget *widget)
{
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    if (!accessible)
        return QString();
    const auto labels = accessible->relations(QAccessible::Label);
    if (!labels.isEmpty())
        return labels.constFirst().first->text(QAccessible::Name);
    // Qt gives a combo box its value for a name.
    return accessible->role() == QAccessible::ComboBox ? QString()
                                                       : accessible->text(QAccessible::Name);
}

QWidget *findControl(QWidget *page, const QString &name)
{
    const QVector<QWidget *> controls = controlsOf(page);
    const auto found = std::find_if(controls.cbegin(), controls.cend(), [&](QWidget *control) {
        return accessibleNameOf(control) == name;
    });
    return found == controls.cend() ? nullptr : *found;
}

QVector<QWidget *> focusStops(const std::function<void()> &press, const QWidget *last)
{
    QVector<QWidget *> stops;
    do {
        press();
        QWidget *focus = QApplication::focusWidget();
        if (!focus || stops.contains(focus))
            break;
        stops.append(focus);
    } while (stops.constLast() != last);
    return stops;
}

} // namespace controlcenter
