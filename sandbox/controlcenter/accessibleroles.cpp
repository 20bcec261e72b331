#include "sandbox/controlcenter/accessibleroles.h"

#include "sandbox/controlcenter/breadcrumb.h"
#include "sandbox/controlcenter/controlcenterwindow.h"

#include <QAccessibleWidget>

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

QAccessibleInterface *create(const QString &, QObject *object)
{
    if (auto *window = qobject_cast<ControlCenterWindow *>(object))
        return new QAccessibleWidget(window, QAccessible::Window);
    if (auto *breadcrumb = qobject_cast<Breadcrumb *>(object))
        return new BreadcrumbAccessible(breadcrumb);
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
