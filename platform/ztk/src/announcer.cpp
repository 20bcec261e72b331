#include "announcer.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QPointer>

namespace Ztk {
namespace Widget {

namespace {

QPointer<QObject> focus; // as assistive technologies know it

QAccessibleInterface *create(const QString &className, QObject *object)
{
    if (className == QLatin1String(Announcement::staticMetaObject.className()))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Notification);
    return nullptr;
}

QString textOf(QObject *object, QAccessible::Text text)
{
    const QAccessibleInterface *about = QAccessible::queryAccessibleInterface(object);
    return about ? about->text(text) : QString();
}

// What is to be said because of an event. Of a combo box a screen reader says the label alone, and
// nothing when another entry is chosen in it while it is closed.
QString announcedBy(const QAccessibleEvent *event)
{
    switch (event->type()) {
    case QAccessible::Alert: {
        const QString text = textOf(event->object(), QAccessible::Name);
        return text == textOf(focus, QAccessible::Description) ? QString() : text; // said with it
    }
    case QAccessible::DescriptionChanged: {
        const auto *widget = qobject_cast<QWidget *>(event->object());
        return widget && widget->hasFocus() ? textOf(event->object(), QAccessible::Description)
                                            : QString();
    }
    case QAccessible::Focus:
    case QAccessible::ValueChanged: {
        const auto *box = qobject_cast<QComboBox *>(event->object());
        return box && box->hasFocus() ? box->currentText() : QString();
    }
    default:
        return QString();
    }
}

void onEvent(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::Focus)
        focus = event->object();
    // A line of text tells of its cursor before it tells of the focus, and is not said for that.
    if (event->type() == QAccessible::TextCaretMoved && event->object() != focus)
        return;

    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(onEvent);

    const auto *widget = qobject_cast<QWidget *>(event->object());
    const QString text = widget ? announcedBy(event) : QString();
    if (!text.isEmpty())
        Announcement::of(widget->window())->say(text);
}

} // namespace

void announcer::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(create);
        QAccessible::installUpdateHandler(onEvent);
        return true;
    }();
    Q_UNUSED(installed)
}

Announcement::Announcement(QWidget *window)
    : QWidget(window)
{
    setGeometry(0, 0, 1, 1);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

Announcement *Announcement::of(QWidget *window)
{
    auto *announcement = window->findChild<Announcement *>(QString(), Qt::FindDirectChildrenOnly);
    return announcement ? announcement : new Announcement(window);
}

void Announcement::say(const QString &text)
{
    hide();
    setAccessibleName(text);
    show();
}

} // namespace Widget
} // namespace Ztk
