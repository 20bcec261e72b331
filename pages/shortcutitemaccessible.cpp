#include "pages/shortcutitemaccessible.h"

#include "pages/accessiblefactory.h"
#include "pages/shortcutitem.h"

ShortcutItemAccessible::ShortcutItemAccessible(ShortcutItem *row)
    : QAccessibleWidget(row)
{
}

void ShortcutItemAccessible::install()
{
    accessiblefactory::install<ShortcutItem, ShortcutItemAccessible>();
}

QAccessible::Role ShortcutItemAccessible::role() const
{
    return row()->isInEditMode() ? QAccessible::Grouping : QAccessible::Button;
}

QStringList ShortcutItemAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (row()->isEnabled() && !row()->isInEditMode())
        names.prepend(pressAction());
    return names;
}

void ShortcutItemAccessible::doAction(const QString &name)
{
    if (name == pressAction())
        row()->press();
    else
        QAccessibleWidget::doAction(name);
}

ShortcutItem *ShortcutItemAccessible::row() const
{
    return static_cast<ShortcutItem *>(widget());
}
