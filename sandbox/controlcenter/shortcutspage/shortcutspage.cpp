#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"

#include "pages/shortcutitem.h"
#include "pages/showntext.h"
#include "sandbox/controlcenter/shortcutspage/keygrabber.h"
#include "sandbox/controlcenter/shortcutspage/shortcutstore.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <zcc/widgets/settingsgroup.h>

#include <QAccessible>
#include <QDebug>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

using zcc::widgets::SettingsGroup;

namespace controlcenter {
namespace {

constexpr int listSpacing = 1;     // px: the rows stand as one block
constexpr int messageSpacing = 12; // px
constexpr int pencilGap = 8;       // px
constexpr int retryMs = 1000;
constexpr int longestReason = 256; // characters

QString readable(const QString &accelerator)
{
    return ShortcutItem::keyNames(accelerator).join(QLatin1Char('+'));
}

} // namespace

ShortcutsPage::ShortcutsPage(const QVector<Shortcut> &shortcuts, QWidget *parent)
    : QWidget(parent)
    , m_edit(new QPushButton(tr("Edit")))
    , m_restore(new QPushButton(tr("Restore defaults")))
    , m_undo(new QPushButton(tr("Undo")))
    , m_message(new QLabel)
    , m_store(new ShortcutStore(this))
    , m_grabber(new KeyGrabber(this))
    , m_retry(new QTimer(this))
{
    m_edit->setCheckable(true);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(pageMargin, 0, pageMargin, pageMargin);
    layout->setSpacing(messageSpacing);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_restore);
    buttons->addWidget(m_edit);
    layout->addLayout(buttons);
    auto *group = new SettingsGroup;
    group->setSpacing(listSpacing);
    layout->addWidget(group);
    auto *news = new QHBoxLayout;
    news->setSpacing(messageSpacing);
    news->addWidget(m_message, 1);
    news->addWidget(m_undo, 0, Qt::AlignTop);
    layout->addLayout(news);
    layout->addStretch();
    m_restore->hide();
    m_undo->hide();

    for (const Shortcut &shortcut : shortcuts) {
        addLine(shortcut);
        group->appendItem(m_lines.last().row);
    }

    connect(m_edit, &QPushButton::toggled, this, &ShortcutsPage::setEditMode);
    connect(m_restore, &QPushButton::clicked, this, &ShortcutsPage::restore);
    connect(m_undo, &QPushButton::clicked, this, &ShortcutsPage::undo);
    connect(m_grabber, &KeyGrabber::grabbed, this, &ShortcutsPage::store);
    connect(m_grabber, &KeyGrabber::cancelled, this, &ShortcutsPage::endWait);
    connect(m_store, &ShortcutStore::known, this, &ShortcutsPage::onKnown);
    connect(m_store, &ShortcutStore::failed, this, &ShortcutsPage::onFailed);
    m_retry->setSingleShot(true);
    m_retry->setInterval(retryMs);
    connect(m_retry, &QTimer::timeout, this, &ShortcutsPage::readAll);
}

ShortcutItem *ShortcutsPage::row(const QString &id) const
{
    for (const Line &line : m_lines)
        if (line.shortcut.id == id)
            return line.row;
    return nullptr;
}

QPushButton *ShortcutsPage::editButton() const
{
    return m_edit;
}

QPushButton *ShortcutsPage::restoreButton() const
{
    return m_restore;
}

QPushButton *ShortcutsPage::undoButton() const
{
    return m_undo;
}

QString ShortcutsPage::message() const
{
    return m_message->text();
}

bool ShortcutsPage::isComplete() const
{
    return !isVisible() || std::all_of(m_lines.cbegin(), m_lines.cend(),
                                       [](const Line &line) { return line.isAnswered; });
}

void ShortcutsPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    clearMessage();
    readAll();
}

void ShortcutsPage::readAll()
{
    for (const Line &line : qAsConst(m_lines))
        m_store->read(line.shortcut.id);
}

void ShortcutsPage::addLine(const Shortcut &shortcut)
{
    auto *row = new ShortcutItem;
    const QString id = shortcut.id;
    row->setObjectName(id);
    row->setTitle(shortcut.title);
    connect(row, &ShortcutItem::requestUpdateKey, this, [this, id] { await(id); });
    connect(row, &ShortcutItem::shortcutEditChanged, this, [this, id] { edit(id); });
    connect(row, &ShortcutItem::requestRemove, this, [this, id] { remove(id); });
    m_lines.append({shortcut, QString(), row});
}

ShortcutsPage::Line *ShortcutsPage::line(const QString &id)
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
                                    [&id](const Line &line) { return line.shortcut.id == id; });
    return found == m_lines.end() ? nullptr : &*found;
}

// A new shortcut ends a row's edit mode, the page's goes on, and the focus stays where it was.
void ShortcutsPage::showLine(const Line &line)
{
    // The window's focus, which it keeps while another window is in use.
    QWidget *focus = window()->focusWidget();
    line.row->setShortcut(line.accelerator);
    if (!m_edit->isChecked())
        return;
    line.row->onEditMode(true);
    if (focus && line.row->isAncestorOf(focus))
        focus->setFocus();
}

void ShortcutsPage::setEditMode(bool on)
{
    m_edit->setText(on ? tr("Done") : tr("Edit"));
    m_restore->setVisible(on);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int gap = on ? pencilGap : 0;
    for (const Line &line : qAsConst(m_lines)) {
        line.row->onEditMode(on);
        // The row keeps no room between its title and the pencil behind it.
        line.row->findChild<QLabel *>(QStringLiteral("title"))
            ->setContentsMargins(mirrored ? gap : 0, 0, mirrored ? 0 : gap, 0);
    }
}

// Shows a text, and has screen readers read it out.
void ShortcutsPage::announce(const QString &text)
{
    m_message->setText(text);
    QAccessibleEvent alert(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ShortcutsPage::clearMessage()
{
    m_message->clear();
    m_undo->hide();
}

// The row leaves edit mode for as long as it waits: its entry field shows that it does. It asks for
// a key as after a click on its caps.
void ShortcutsPage::edit(const QString &id)
{
    if (!m_awaited.isEmpty())
        endWait();
    m_focusBefore = window()->focusWidget();
    ShortcutItem *row = line(id)->row;
    row->onEditMode(false);
    row->press();
}

void ShortcutsPage::await(const QString &id)
{
    if (!m_awaited.isEmpty() && m_awaited != id)
        endWait();
    m_awaited = id;
    m_offered.clear();
    m_undo->hide();
    const Line &awaited = *line(id);
    announce(tr("Press the new shortcut for “%1”. Escape keeps the old one.")
                 .arg(awaited.shortcut.title));
    m_grabber->start(awaited.row);
}

void ShortcutsPage::endWait()
{
    const Line &awaited = *line(m_awaited);
    m_awaited.clear();
    m_grabber->stop();
    clearMessage();
    showLine(awaited);
    if (m_focusBefore && awaited.row->isAncestorOf(m_focusBefore))
        m_focusBefore->setFocus();
    m_focusBefore.clear();
}

void ShortcutsPage::store(const QString &accelerator)
{
    const Line &awaited = *line(m_awaited);
    const Line *other = nullptr;
    for (const Line &candidate : qAsConst(m_lines))
        if (&candidate != &awaited && candidate.accelerator == accelerator)
            other = &candidate;
    if (other && m_offered != accelerator) {
        m_offered = accelerator;
        announce(
            tr("Used by “%1”. Press again to use it here instead.").arg(other->shortcut.title));
        m_grabber->start(awaited.row);
        return;
    }
    endWait();
    if (accelerator == awaited.accelerator)
        return;
    QMap<QString, QString> accelerators{{awaited.shortcut.id, accelerator}};
    if (other)
        accelerators.insert(other->shortcut.id, QString());
    change(
        accelerators,
        tr("The shortcut for “%1” is now %2.").arg(awaited.shortcut.title, readable(accelerator)));
}

void ShortcutsPage::remove(const QString &id)
{
    const Line &removed = *line(id);
    if (!removed.accelerator.isEmpty())
        change({{id, QString()}},
               tr("The shortcut for “%1” was removed.").arg(removed.shortcut.title));
}

void ShortcutsPage::restore()
{
    QMap<QString, QString> accelerators;
    for (const Line &line : qAsConst(m_lines))
        accelerators.insert(line.shortcut.id, line.shortcut.standard);
    change(accelerators, tr("The shortcuts are the usual ones again."));
}

void ShortcutsPage::undo()
{
    const bool hadFocus = m_undo->hasFocus();
    const QMap<QString, QString> before = m_before;
    change(before, tr("The shortcuts are as they were before."));
    m_before.clear(); // once
    if (hadFocus)
        m_edit->setFocus();
}

// Has the daemon store accelerators, by identifier, and says the result when it has done all.
void ShortcutsPage::change(const QMap<QString, QString> &accelerators, const QString &result)
{
    clearMessage();
    m_before.clear();
    m_result = result;
    m_changing = accelerators.keys();
    for (auto change = accelerators.cbegin(); change != accelerators.cend(); ++change) {
        m_before.insert(change.key(), line(change.key())->accelerator);
        m_store->write(change.key(), change.value());
    }
}

void ShortcutsPage::onKnown(const QString &id, const QString &accelerator)
{
    Line &known = *line(id);
    known.accelerator = accelerator;
    known.isAnswered = true;
    m_failed.remove(id);
    setOperable(m_failed.isEmpty());
    if (id != m_awaited)
        showLine(known);
    if (m_changing.removeOne(id) && m_changing.isEmpty() && m_awaited.isEmpty()) {
        announce(m_result);
        m_undo->setVisible(!m_before.isEmpty());
    }
}

void ShortcutsPage::onFailed(const QString &id, const QString &reason)
{
    if (!m_failed.contains(id))
        qInfo() << "shortcut" << id << showntext::cut(reason, longestReason);
    m_failed.insert(id);
    line(id)->isAnswered = true;
    m_changing.clear();
    if (isVisible())
        m_retry->start();
    if (!m_awaited.isEmpty())
        endWait();
    setOperable(false);
    announce(tr("The shortcuts cannot be read or changed now: their service does not answer."));
}

void ShortcutsPage::setOperable(bool operable)
{
    if (m_edit->isEnabled() == operable)
        return;
    m_edit->setEnabled(operable);
    m_restore->setEnabled(operable);
    for (const Line &line : qAsConst(m_lines))
        line.row->setEnabled(operable);
    if (operable)
        clearMessage();
    else
        m_undo->hide();
}

} // namespace controlcenter
