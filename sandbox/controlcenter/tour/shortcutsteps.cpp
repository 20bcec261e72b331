#include "pages/shortcutitem.h"
#include "sandbox/controlcenter/controlcenterwindow.h"
#include "sandbox/controlcenter/moduleregistry.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "sandbox/controlcenter/shortcutspage/shortcutstore.h"
#include "sandbox/controlcenter/tour/tour.h"
#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/services/control/servicecontrol.h"

#include <zcc/widgets/tipslabel.h>

#include <QApplication>
#include <QMap>
#include <QPushButton>

#include <memory>

namespace controlcenter {
namespace {

// Far from any default, so that it is free.
constexpr Qt::Key newKey = Qt::Key_F11;
const QString newKeyText = QStringLiteral("Ctrl+Alt+F11");

// The shortcuts before the tour, by identifier.
struct SavedShortcuts
{
    QMap<QString, QString> accelerators; // in the service
    QMap<QString, QString> shown;        // on the page
};

ShortcutItem *row(TourDriver &driver, const QString &id)
{
    return driver.window()->shortcutsPage()->row(id);
}

// Waits until the row shows the text as its shortcut.
QString waitForShortcut(TourDriver &driver, const QString &id, const QString &text)
{
    const ShortcutItem *shown = row(driver, id);
    if (driver.waitFor([&] { return shown->accessibleDescription() == text; }))
        return QString();
    return QStringLiteral("the row shows \"%1\", not \"%2\"")
        .arg(shown->accessibleDescription(), text);
}

QString openShortcuts(TourDriver &driver)
{
    driver.window()->openShortcuts();
    for (const PageShortcut &shortcut : pageShortcuts) {
        const QString id = shortcut.id;
        const ShortcutItem *shown = row(driver, id);
        if (!driver.waitFor([shown] { return !shown->accessibleDescription().isEmpty(); }))
            return QStringLiteral("no shortcut is shown: ") +
                   driver.window()->shortcutsPage()->message();
    }
    driver.settle();
    return QString();
}

QString save(TourDriver &driver, SavedShortcuts *saved)
{
    QString problem = openShortcuts(driver);
    if (!problem.isEmpty())
        return problem;
    sandbox::ServiceControl service(QStringLiteral("keybinding"));
    for (const PageShortcut &shortcut : pageShortcuts) {
        const QString id = shortcut.id;
        const QVariant value = service.value(id);
        if (!value.isValid())
            return service.error();
        saved->accelerators.insert(id, value.toStringList().value(0));
        saved->shown.insert(id, row(driver, id)->accessibleDescription());
    }
    return QString();
}

QString restore(TourDriver &driver, const SavedShortcuts &saved)
{
    ShortcutStore store;
    QMap<QString, QString> known;
    QObject::connect(
        &store, &ShortcutStore::known, driver.window(),
        [&known](const QString &id, const QString &accelerator) { known.insert(id, accelerator); });
    for (const PageShortcut &shortcut : pageShortcuts)
        store.write(shortcut.id, saved.accelerators.value(shortcut.id));
    if (!driver.waitFor([&] { return known == saved.accelerators; }))
        return QStringLiteral("the service does not take its old shortcuts");

    driver.window()->openModule(); // the page asks again when it is opened again
    driver.window()->openShortcuts();
    QString problem;
    for (const PageShortcut &shortcut : pageShortcuts)
        problem += waitForShortcut(driver, shortcut.id, saved.shown.value(shortcut.id));
    driver.settle();
    return problem;
}

TourStep showStep(bool dark)
{
    const QString theme = dark ? QStringLiteral("dark") : QStringLiteral("light");
    return {QStringLiteral("show the shortcuts (%1)").arg(theme),
            [dark](TourDriver &driver) {
                driver.setDark(dark);
                return openShortcuts(driver);
            },
            QStringLiteral("shortcuts-") + theme};
}

TourStep sharpnessStep(int factor, const QString &picture)
{
    return {QStringLiteral("take pictures at %1x").arg(factor),
            [factor](TourDriver &driver) {
                driver.setPictureScale(factor);
                return QString();
            },
            picture};
}

TourStep awaitStep()
{
    return {QStringLiteral("ask for a new shortcut with the keyboard"),
            [](TourDriver &driver) {
                ShortcutItem *asking = row(driver, shortcutids::translation);
                if (!driver.tabTo(asking))
                    return QStringLiteral("Tab does not lead to the row");
                driver.press(Qt::Key_Space);
                return driver.window()->shortcutsPage()->message().isEmpty()
                           ? QStringLiteral("the page does not wait for a key")
                           : QString();
            },
            QStringLiteral("shortcuts-awaiting")};
}

TourStep typeStep()
{
    return {QStringLiteral("type the new shortcut"),
            [](TourDriver &driver) {
                driver.press(newKey, Qt::ControlModifier | Qt::AltModifier);
                return waitForShortcut(driver, shortcutids::translation, newKeyText);
            },
            QStringLiteral("shortcuts-changed")};
}

TourStep hintStep(const QString &page)
{
    return {QStringLiteral("find the new shortcut on '%1'").arg(page),
            [page](TourDriver &driver) {
                QString problem = driver.openPage(page);
                if (!problem.isEmpty())
                    return problem;
                const auto *hint =
                    driver.window()->currentPage()->findChild<zcc::widgets::TipsLabel *>();
                return hint && hint->text().contains(newKeyText)
                           ? QString()
                           : QStringLiteral("its hint does not show the new shortcut");
            },
            QStringLiteral("shortcuts-hint")};
}

TourStep editStep()
{
    return {QStringLiteral("enter the edit mode"),
            [](TourDriver &driver) {
                QString problem = openShortcuts(driver);
                if (!problem.isEmpty())
                    return problem;
                QPushButton *edit = driver.window()->shortcutsPage()->editButton();
                if (!driver.tabTo(edit))
                    return QStringLiteral("Tab does not lead to the edit button");
                driver.press(Qt::Key_Space);
                return edit->isChecked() ? QString()
                                         : QStringLiteral("the edit button does not react");
            },
            QStringLiteral("shortcuts-edit")};
}

TourStep removeStep()
{
    return {QStringLiteral("remove a shortcut"),
            [](TourDriver &driver) {
                const ShortcutItem *shown = row(driver, shortcutids::speechToText);
                const QString before = shown->accessibleDescription();
                auto *remove = shown->findChild<QWidget *>(QStringLiteral("remove"));
                if (!driver.tabTo(remove))
                    return QStringLiteral("Tab does not lead to the remove button");
                driver.press(Qt::Key_Space);
                if (!driver.waitFor([&] { return shown->accessibleDescription() != before; }))
                    return QStringLiteral("the row keeps the shortcut");
                sandbox::ServiceControl service(QStringLiteral("keybinding"));
                if (!service.value(shortcutids::speechToText).toStringList().isEmpty())
                    return QStringLiteral("the service keeps the shortcut");
                if (!remove->hasFocus())
                    return QStringLiteral("the focus has left the button");
                driver.window()->shortcutsPage()->editButton()->click();
                driver.settle();
                return QString();
            },
            QStringLiteral("shortcuts-removed")};
}

TourStep restoreStep(const std::shared_ptr<SavedShortcuts> &saved)
{
    return {QStringLiteral("restore the service's old shortcuts"),
            [saved](TourDriver &driver) { return restore(driver, *saved); }, QString()};
}

TourStep elideStep()
{
    return {QStringLiteral("elide a long title"),
            [](TourDriver &driver) {
                ShortcutItem *shown = row(driver, shortcutids::translation);
                const QString title = shown->accessibleName();
                QStringList words;
                while (words.size() < 20)
                    words.append(title);
                const QString given = words.join(QStringLiteral(", "));
                shown->setTitle(given);
                const auto *label = shown->findChild<QLabel *>(QStringLiteral("title"));
                // Qt writes no ellipsis where the font, as one for Tibetan, has no sign for it.
                const auto isElided = [label, given] {
                    return label->text().size() < given.size();
                };
                return driver.waitFor(isElided) ? QString()
                                                : QStringLiteral("the title is not elided");
            },
            QStringLiteral("shortcuts-elided")};
}

TourStep usualTitleStep(const QString &title)
{
    return {QStringLiteral("go back to the usual title"),
            [title](TourDriver &driver) {
                row(driver, shortcutids::translation)->setTitle(title);
                driver.settle();
                return QString();
            },
            QString()};
}

TourStep directionStep(Qt::LayoutDirection direction, const QString &picture)
{
    const bool mirrored = direction == Qt::RightToLeft;
    return {mirrored ? QStringLiteral("show the shortcuts from right to left")
                     : QStringLiteral("show the shortcuts from left to right"),
            [direction](TourDriver &driver) {
                QApplication::setLayoutDirection(direction);
                return openShortcuts(driver);
            },
            picture};
}

} // namespace

TourSteps shortcutSteps(const ControlCenterWindow *window)
{
    const auto saved = std::make_shared<SavedShortcuts>();
    const QString title = window->pageTitle(modulepages::translation);
    return {
        {QStringLiteral("save the service's shortcuts"),
         [saved](TourDriver &driver) { return save(driver, saved.get()); }, QString()},
        showStep(true),
        showStep(false),
        sharpnessStep(2, QStringLiteral("shortcuts-sharp")),
        sharpnessStep(1, QString()),
        awaitStep(),
        typeStep(),
        hintStep(modulepages::translation),
        editStep(),
        removeStep(),
        restoreStep(saved),
        elideStep(),
        usualTitleStep(title),
        directionStep(Qt::RightToLeft, QStringLiteral("shortcuts-mirrored")),
        directionStep(QApplication::layoutDirection(), QString()),
    };
}

} // namespace controlcenter
