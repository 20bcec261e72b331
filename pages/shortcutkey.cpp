#include "pages/shortcutkey.h"

#include "pages/accessiblefactory.h"
#include "pages/keylabel.h"

#include <QAccessibleWidget>
#include <QHBoxLayout>

namespace {
constexpr int capSpacing = 5; // pixels
constexpr int mostCaps = 64;

// Pixels. Wider than any shortcut that can be typed, narrow enough that damaged input does not blow
// up the window around the row to a size that cannot be allocated.
constexpr int widest = 4096;

class ShortcutKeyAccessible : public QAccessibleWidget
{
public:
    explicit ShortcutKeyAccessible(ShortcutKey *caps)
        : QAccessibleWidget(caps, QAccessible::Grouping)
    {
    }

    // Not the widget's own name, of which Qt would tell while the caps are hidden.
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? static_cast<ShortcutKey *>(widget())->text()
                                         : QAccessibleWidget::text(text);
    }
};
} // namespace

ShortcutKey::ShortcutKey(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout)
{
    accessiblefactory::install<ShortcutKey, ShortcutKeyAccessible>();
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(capSpacing);
    setLayout(m_layout);
    setLayoutDirection(Qt::LeftToRight); // "Ctrl Alt T" keeps its order in right-to-left languages
    setMaximumWidth(widest);
}

void ShortcutKey::setTextList(const QStringList &keys)
{
    QList<KeyLabel *> old;
    old.swap(m_caps);
    for (KeyLabel *cap : qAsConst(old)) {
        m_layout->removeWidget(cap);
        cap->hide();
        cap->deleteLater();
    }

    QStringList names = keys.mid(0, mostCaps);
    if (keys.size() > mostCaps)
        names.append(QString(QChar(0x2026)));
    for (const QString &name : qAsConst(names)) {
        auto *cap = new KeyLabel(name);
        m_caps.append(cap);
        m_layout->addWidget(cap);
        cap->show(); // a hidden cap would not count in the size taken below
    }
    adjustSize();
    updateGeometry(); // the layout around it has seen the caps already, but not this size
}

QString ShortcutKey::text() const
{
    QStringList shown;
    for (const KeyLabel *cap : m_caps)
        shown.append(cap->text());
    return shown.join(QLatin1Char('+'));
}

void ShortcutKey::enterEvent(QEvent *event)
{
    QWidget::enterEvent(event);
    setEnter(true);
}

void ShortcutKey::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    setEnter(false);
}

void ShortcutKey::setEnter(bool enter)
{
    for (KeyLabel *cap : qAsConst(m_caps))
        cap->setEnter(enter);
}
