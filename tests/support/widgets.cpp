#include "tests/support/widgets.h"

#include <zcc/widgets/switchwidget.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>

namespace testsupport {

namespace {

template <typename Widget, typename Condition>
Widget *firstWhere(const QWidget *page, Condition condition)
{
    const auto widgets = page->findChildren<Widget *>();
    for (Widget *widget : widgets)
        if (condition(widget))
            return widget;
    return nullptr;
}

// Notices deletions: each pass over the posted events leaves those that it causes to the next one.
class DeletionCounter : public QObject
{
public:
    DeletionCounter() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::DeferredDelete ? 1 : 0;
        return false;
    }

    int count = 0;
};

} // namespace

zcc::widgets::SwitchWidget *switchTitled(const QWidget *page, const QString &title)
{
    using zcc::widgets::SwitchWidget;
    return firstWhere<SwitchWidget>(page, [&](SwitchWidget *row) { return row->title() == title; });
}

QAbstractButton *switchButton(const zcc::widgets::SwitchWidget *row)
{
    return row->findChild<QAbstractButton *>();
}

QComboBox *comboBoxAt(const QWidget *page, int index)
{
    return page->findChildren<QComboBox *>().value(index);
}

QCheckBox *checkBoxTitled(const QWidget *page, const QString &text)
{
    return firstWhere<QCheckBox>(page, [&](QCheckBox *box) { return box->text() == text; });
}

QLabel *labelWithText(const QWidget *page, const QString &text)
{
    return firstWhere<QLabel>(page, [&](QLabel *label) { return label->text() == text; });
}

QLabel *labelContaining(const QWidget *page, const QString &part)
{
    return firstWhere<QLabel>(page, [&](QLabel *label) { return label->text().contains(part); });
}

QStringList labelTexts(const QWidget *page)
{
    QStringList texts;
    const auto labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text());
    return texts;
}

void flushDeferredDeletes()
{
    DeletionCounter counter;
    do {
        counter.count = 0;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (counter.count > 0);
}

QStringList topLevelWidgetsLeft()
{
    QStringList names;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (!window->parentWidget()) {
            names.append(QLatin1String(window->metaObject()->className()) + QLatin1Char(' ') +
                         window->objectName());
        }
    }
    return names;
}

} // namespace testsupport
