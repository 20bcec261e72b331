#include "groupingrole.h"

#include "zcc/widgets/settingsgroup.h"
#include "zcc/widgets/settingsitem.h"

#include <QAccessibleWidget>

namespace zcc {
namespace widgets {

namespace {

QAccessibleInterface *create(const QString &className, QObject *object)
{
    if (className == QLatin1String(SettingsItem::staticMetaObject.className()) ||
        className == QLatin1String(SettingsGroup::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Grouping);
    return nullptr;
}

} // namespace

void GroupingRole::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(create);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace widgets
} // namespace zcc
