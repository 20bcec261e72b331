#pragma once

#include <QAccessibleWidget>

class ShortcutItem;

/**
 * What assistive technologies see of a shortcut row: a button with the row's title and shortcut
 * that asks for a new shortcut, or in edit mode a group with two buttons.
 */
class ShortcutItemAccessible : public QAccessibleWidget
{
public:
    explicit ShortcutItemAccessible(ShortcutItem *row);

    /** Makes it known to Qt; further calls do nothing. Taken back when the module is unloaded. */
    static void install();

    QAccessible::Role role() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

private:
    ShortcutItem *row() const;
};
