#include "pages/shortcutitemaccessible.h"

#include "pages/shortcutitem.h"

namespace {

QAccessibleInterface *create(const QString &, QObject *object)
{
    auto *row = qobject_cast<ShortcutItem *>(object);
    return row ? new ShortcutItemAccessible(row) : nullptr;
}

/** The registration; Qt must not call a factory whose code is gone. */
class Registration
{
public:
    Registration() { QAccessible::installFactory(create); }
    ~Registration() { QAccessible::removeFactory(create); }
};

} // namespace

ShortcutItemAccessible::ShortcutItemAccessible(ShortcutItem *row)
    : QAccessibleWidget(row)
{
}

void ShortcutItemAccessible::install()
{
    static const Registration registration;
}

QAccessible::Role ShortcutItemAccessible::role() const
{
    return row()->isInEditMode() ? QAccessible::Grouping : QAccessible::Button;
}

QStringList ShortcutItemAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (!row()->isInEditMode())
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
