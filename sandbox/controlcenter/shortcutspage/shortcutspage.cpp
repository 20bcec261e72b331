#include "sandbox/controlcenter/shortcutspage/shortcutspage.h"

#include "pages/shortcutitem.h"
#include "pages/showntext.h"
#include "sandbox/controlcenter/shortcutspage/keygrabber.h"
#include "sandbox/controlcenter/shortcutspage/shortcutstore.h"
#include "sandbox/controlcenter/windowstyle.h"

#include <zcc/widgets/settingsgroup.h>

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using zcc::widgets::SettingsGroup;

namespace controlcenter {
namespace {

constexpr int rowSpacing = 1;      // px: the rows stand as one block
constexpr int messageSpacing = 12; // px

QString readable(const QString &accelerator)
{
    return ShortcutItem::keyNames(accelerator).join(QLatin1Char('+'));
}

} // namespace

ShortcutsPage::ShortcutsPage(const QVector<Shortcut> &shortcuts, QWidget *parent)
    : QWidget(parent)
    , m_edit(new QPushButton(tr("Edit")))
    , m_message(new QLabel)
    , m_store(new ShortcutStore(this))
    , m_grabber(new KeyGrabber(this))
{
    m_edit->setCheckable(true);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(pageMargin, 0, pageMargin, pageMargin);
    layout->setSpacing(messageSpacing);
    layout->addWidget(m_edit, 0, Qt::AlignRight);
    auto *group = new SettingsGroup;
    group->setSpacing(rowSpacing);
    layout->addWidget(group);
    layout->addWidget(m_message);
    layout->addStretch();

    for (const Shortcut &shortcut : shortcuts) {
        addLine(shortcut);
        group->appendItem(m_lines.last().row);
    }

    connect(m_edit, &QPushButton::toggled, this, &ShortcutsPage::setEditMode);
    connect(m_grabber, &KeyGrabber::grabbed, this, &ShortcutsPage::store);
    connect(m_grabber, &KeyGrabber::cancelled, this, &ShortcutsPage::endWait);
    connect(m_store, &ShortcutStore::known, this, &ShortcutsPage::onKnown);
    connect(m_store, &ShortcutStore::failed, this, &ShortcutsPage::onFailed);
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

QString ShortcutsPage::message() const
{
    return m_message->text();
}

void ShortcutsPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_message->clear();
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
    connect(row, &ShortcutItem::shortcutEditChanged, this, [this, id] { await(id); });
    connect(row, &ShortcutItem::requestRemove, this, [this, id] { m_store->write(id, QString()); });
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
    for (const Line &line : qAsConst(m_lines))
        line.row->onEditMode(on);
}

// Shows a text, and has screen readers read it out.
void ShortcutsPage::announce(const QString &text)
{
    m_message->setText(text);
    QAccessibleEvent alert(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ShortcutsPage::await(const QString &id)
{
    if (!m_awaited.isEmpty() && m_awaited != id)
        endWait();
    m_awaited = id;
    const Line &awaited = *line(id);
    announce(tr("Press the new shortcut for “%1”. Escape keeps the old one.")
                 .arg(awaited.shortcut.title));
    m_grabber->start(awaited.row);
}

void ShortcutsPage::endWait()
{
    const Line &awaited = *line(m_awaited);
    m_awaited.clear();
    m_message->clear();
    showLine(awaited);
}

void ShortcutsPage::store(const QString &accelerator)
{
    const QString id = m_awaited;
    endWait();
    for (const Line &other : qAsConst(m_lines)) {
        if (other.shortcut.id != id && other.accelerator == accelerator) {
            announce(tr("%1 is the shortcut for “%2” already.")
                         .arg(readable(accelerator), other.shortcut.title));
            return;
        }
    }
    m_store->write(id, accelerator);
}

void ShortcutsPage::onKnown(const QString &id, const QString &accelerator)
{
    Line &known = *line(id);
    known.accelerator = accelerator;
    if (id != m_awaited)
        showLine(known);
}

void ShortcutsPage::onFailed(const QString &id, const QString &reason)
{
    announce(tr("The shortcut for “%1”: %2")
                 .arg(line(id)->shortcut.title, showntext::cut(reason, showntext::longestWords)));
}

} // namespace controlcenter
