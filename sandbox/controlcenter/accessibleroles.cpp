#include "sandbox/controlcenter/accessibleroles.h"

#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/servicespage/servicecard.h"
#include "sandbox/controlcenter/servicespage/servicespage.h"
#include "sandbox/controlcenter/themebutton.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <QAccessibleWidget>
#include <QMenu>
#include <QScrollArea>
#include <QStackedWidget>

namespace controlcenter {
namespace {

// One text, read in one go, without the arrow between its parts.
class BreadcrumbAccessible : public QAccessibleWidget
{
public:
    explicit BreadcrumbAccessible(Breadcrumb *breadcrumb)
        : QAccessibleWidget(breadcrumb, QAccessible::StaticText)
    {
    }

    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
};

// With the menu as a child while it is open: Qt leaves popups out of the tree.
class ThemeButtonAccessible : public QAccessibleWidget
{
public:
    explicit ThemeButtonAccessible(ThemeButton *button)
        : QAccessibleWidget(button, QAccessible::ButtonMenu)
    {
    }

    int childCount() const override { return button()->menu()->isVisible() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override
    {
        return index >= 0 && index < childCount()
                   ? QAccessible::queryAccessibleInterface(button()->menu())
                   : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && childCount() && child->object() == button()->menu() ? 0 : -1;
    }
    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString &name) override
    {
        // Later: the menu keeps its caller waiting until it is closed.
        if (name == showMenuAction() || name == pressAction())
            QMetaObject::invokeMethod(button(), &ThemeButton::showMenu, Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    ThemeButton *button() const { return static_cast<ThemeButton *>(object()); }
};

QAccessibleInterface *create(const QString &, QObject *object)
{
    if (auto *window = qobject_cast<ControlCenterWindow *>(object))
        return new QAccessibleWidget(window, QAccessible::Window);
    if (auto *breadcrumb = qobject_cast<Breadcrumb *>(object))
        return new BreadcrumbAccessible(breadcrumb);
    if (qobject_cast<ServicesPage *>(object) || qobject_cast<ServiceCard *>(object) ||
        qobject_cast<WorldDrawer *>(object))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Grouping);
    // Qt's own role for it, a layered pane, is said with whatever on a page gets the focus.
    if (auto *stack = qobject_cast<QStackedWidget *>(object))
        return new QAccessibleWidget(stack, QAccessible::Client);
    if (auto *button = qobject_cast<ThemeButton *>(object))
        return new ThemeButtonAccessible(button);
    // Qt's own crashes when it is asked for a scroll bar that has gone meanwhile.
    if (auto *area = qobject_cast<QScrollArea *>(object))
        return new QAccessibleWidget(area, QAccessible::Client);
    return nullptr;
}

} // namespace

void installAccessibleRoles()
{
    static const bool installed = [] {
        QAccessible::installFactory(create);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace controlcenter
