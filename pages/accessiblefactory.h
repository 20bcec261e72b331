#pragma once

#include <QAccessible>

/** Tells Qt how assistive technologies see a class of widgets of the module. */
namespace accessiblefactory {

/**
 * From now on an @p Accessible, made from the widget, speaks for every @p Widget. Further calls do
 * nothing. Taken back when the module is unloaded: Qt must not call code that is gone.
 */
template <typename Widget, typename Accessible>
void install()
{
    struct Registration
    {
        Registration() { QAccessible::installFactory(create); }
        ~Registration() { QAccessible::removeFactory(create); }

        static QAccessibleInterface *create(const QString &, QObject *object)
        {
            auto *widget = qobject_cast<Widget *>(object);
            return widget ? new Accessible(widget) : nullptr;
        }
    };
    static const Registration registration;
}

} // namespace accessiblefactory
