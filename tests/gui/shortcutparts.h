#pragma once

#include "pages/keylabel.h"
#include "pages/shortcutitem.h"
#include "pages/shortcutkey.h"
#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"
#include "tests/support/modulepages.h"
#include "tests/support/serviceprocess.h"

#include <ztk/ziconbutton.h>

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace testsupport {

inline const QChar ellipsis(0x2026);
inline const QString accels = QStringLiteral("<Control><Alt>T");
inline const QString longTitle =
    QStringLiteral("Write what is said into the window that has the keyboard focus");

/** The caps that a row of caps shows, in its layout's order. */
inline QList<KeyLabel *> caps(const ShortcutKey *key)
{
    QList<KeyLabel *> found;
    for (int i = 0; i < key->layout()->count(); ++i)
        found.append(qobject_cast<KeyLabel *>(key->layout()->itemAt(i)->widget()));
    return found;
}

/** The texts of those caps. */
inline QStringList capTexts(const ShortcutKey *key)
{
    QStringList texts;
    for (const KeyLabel *cap : caps(key))
        texts.append(cap->text());
    return texts;
}

/** The parts of a row, found by object name, and what they say about its state. */
struct RowParts
{
    explicit RowParts(const ShortcutItem &row)
        : title(row.findChild<QLabel *>(QStringLiteral("title")))
        , edit(row.findChild<Ztk::Widget::ZIconButton *>(QStringLiteral("edit")))
        , remove(row.findChild<Ztk::Widget::ZIconButton *>(QStringLiteral("remove")))
        , key(row.findChild<ShortcutKey *>(QStringLiteral("key")))
        , lineEdit(row.findChild<QLineEdit *>(QStringLiteral("shortcutEdit")))
    {
    }

    /** The visible parts of the trailing side, as one word for each. */
    QString visible() const
    {
        QStringList words;
        if (key->isVisible())
            words.append(QStringLiteral("caps"));
        if (edit->isVisible())
            words.append(QStringLiteral("edit"));
        if (remove->isVisible())
            words.append(QStringLiteral("remove"));
        if (lineEdit->isVisible())
            words.append(QStringLiteral("line"));
        return words.join(QLatin1Char(' '));
    }

    QLabel *title;
    Ztk::Widget::ZIconButton *edit;
    Ztk::Widget::ZIconButton *remove;
    ShortcutKey *key;
    QLineEdit *lineEdit;
};

/** Clicks at @p position of @p widget through its window, so that Qt itself finds who is hit. */
inline void clickThroughWindow(const QWidget *widget, const QPoint &position)
{
    const QWidget *window = widget->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget->mapTo(window, position));
}

inline void clickThroughWindow(const QWidget *widget)
{
    clickThroughWindow(widget, widget->rect().center());
}

/** A window that holds one row at a place and width of the test's choice. */
class RowWindow : public QWidget
{
public:
    explicit RowWindow(int width = 600)
    {
        resize(width, 80);
        row = new ShortcutItem(&m_frame);
        m_frame.setGeometry(0, 0, width, 80);
        setRowWidth(width - 20);
    }

    void setRowWidth(int width)
    {
        m_frame.resize(width + 20, 80);
        row->setGeometry(10, 10, width, 44);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }

    bool showActive()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }

    QPointer<ShortcutItem> row;

private:
    QFrame m_frame{this};
};

/** The signals of a row in the order of their arrival, each as "signal: name, accelerator". */
class SignalLog : public QObject
{
public:
    explicit SignalLog(ShortcutItem *row)
    {
        const auto log = [this](const char *signal) {
            return [this, signal](const ShortcutItem::ShortcutInfo &info) {
                lines.append(QStringLiteral("%1: %2, %3").arg(signal, info.name, info.accels));
            };
        };
        connect(row, &ShortcutItem::shortcutEditChanged, this, log("edit"));
        connect(row, &ShortcutItem::requestUpdateKey, this, log("update"));
        connect(row, &ShortcutItem::requestRemove, this, log("remove"));
    }

    QStringList lines;
};

/** A window whose row has the title "Title" and that shortcut; its parts, and what it signals. */
class FilledRowWindow : public RowWindow
{
public:
    FilledRowWindow()
    {
        row->setTitle(QStringLiteral("Title"));
        row->setShortcut(accels);
    }

    const RowParts parts{*row};
    SignalLog log{row};
};

inline const QString speechId = modulePage(speechToTextPage).shortcut;
inline const QString readId = modulePage(textToSpeechPage).shortcut;
inline const QString translationId = modulePage(translationPage).shortcut;
inline const Qt::KeyboardModifiers controlAlt = Qt::ControlModifier | Qt::AltModifier;

/** The sandbox's page of shortcuts in a window, and the service that it reads from and writes to.
 */
class ShownShortcutsPage
{
protected:
    using ShortcutsPage = controlcenter::ShortcutsPage;

    static QVector<ShortcutsPage::Shortcut> shortcuts()
    {
        QVector<ShortcutsPage::Shortcut> all;
        for (const ModulePage &page : featurePages())
            all.append(
                {page.shortcut, page.name, QStringLiteral("<Control><Alt>") + page.name.at(0)});
        return all;
    }

    bool startService()
    {
        m_service = std::make_unique<ServiceProcess>(QStringLiteral("keybinding"));
        return m_service->start();
    }

    bool open()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(700, 400);
        m_page = new ShortcutsPage(shortcuts());
        (new QVBoxLayout(m_window.get()))->addWidget(m_page);
        m_window->show();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()) ||
            !QTest::qWaitFor([this] { return !shown(translationId).isEmpty(); }))
            return false;
        QCoreApplication::processEvents(); // the rows take their places
        return true;
    }

    void close()
    {
        m_window.reset();
        m_service.reset();
    }

    QStringList stored(const QString &id) { return m_service->value(id).toStringList(); }
    QStringList shown(const QString &id) const { return capTexts(RowParts(*m_page->row(id)).key); }
    QString visible(const QString &id) const { return RowParts(*m_page->row(id)).visible(); }
    void clickCaps(const QString &id) { clickThroughWindow(RowParts(*m_page->row(id)).key); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    void showAgain()
    {
        m_page->hide();
        m_page->show();
    }

    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<QWidget> m_window;
    QPointer<ShortcutsPage> m_page;
};

} // namespace testsupport
