#include "pages/shortcutitem.h"

#include "pages/shortcutitemaccessible.h"
#include "pages/shortcutkey.h"
#include "pages/showntext.h"

#include <ztk/ziconbutton.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QTimer>

using Ztk::Widget::ZIconButton;

namespace {
// Pixels.
constexpr int minimumRowHeight = 40;
constexpr int buttonSize = 16;
constexpr int titleReserve = 32; // kept free beside the title and the caps
constexpr int textMargins = 6;   // inside a line edit, both sides and the cursor
constexpr int ample = 1000;      // a line edit's width at which no style is short of room

// Around the part that has the focus, in pixels: what the row's own margins leave.
const QMargins focusMargins(3, 2, 3, 2);

// Characters of average width: the title for which a row asks for room.
constexpr int usualTitleLength = 24;

// The toolkit style's picture for "remove this entry"; the number is the toolkit's.
constexpr auto removePicture = static_cast<QStyle::StandardPixmap>(0xF000001B);

// With a modifier, a key belongs to somebody's shortcut; that of the keypad is not the user's.
bool isClick(const QKeyEvent *event)
{
    static const QList<int> keys = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select};
    return !(event->modifiers() & ~Qt::KeypadModifier) && keys.contains(event->key());
}
} // namespace

QStringList ShortcutItem::keyNames(QString accels)
{
    accels.remove(QLatin1Char('<'));
    accels.replace(QLatin1Char('>'), QLatin1Char('-'));
    accels.remove(QLatin1String("_L"));
    accels.remove(QLatin1String("_R"));
    accels.replace(QLatin1String("Control"), QLatin1String("Ctrl"));
    return accels.split(QLatin1Char('-'));
}

ShortcutItem::ShortcutItem(QFrame *parent)
    : zcc::widgets::SettingsItem(parent)
{
    ShortcutItemAccessible::install();
    // In the order in which they are reached by Tab and read aloud.
    m_title = new QLabel(this);
    m_editButton = new ZIconButton(this);
    m_removeButton = new ZIconButton(removePicture, this);
    m_key = new ShortcutKey(this);
    m_shortcutEdit = new QLineEdit(this);

    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Minimum);
    setMinimumHeight(minimumRowHeight);
    setAttribute(Qt::WA_MouseTracking);
    setFocusPolicy(Qt::TabFocus);

    m_title->setObjectName(QStringLiteral("title"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_title->setWordWrap(false);
    m_title->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    m_editButton->setObjectName(QStringLiteral("edit"));
    //: Name of a button that has only an icon: the user wants to change this shortcut.
    m_editButton->setAccessibleName(tr("Edit"));
    m_editButton->setIcon(QIcon::fromTheme(QStringLiteral("zcc_edit")));
    m_removeButton->setObjectName(QStringLiteral("remove"));
    //: Name of a button that has only an icon: the user wants to remove this shortcut.
    m_removeButton->setAccessibleName(tr("Remove"));
    for (ZIconButton *button : {m_editButton, m_removeButton}) {
        button->setFixedSize(buttonSize, buttonSize);
        button->setVisible(false);
    }

    m_key->setObjectName(QStringLiteral("key"));

    m_shortcutEdit->setObjectName(QStringLiteral("shortcutEdit"));
    m_shortcutEdit->setReadOnly(true);
    m_shortcutEdit->setPlaceholderText(tr("Enter a new shortcut"));
    // A click on it is a click on the row: it ends the wait.
    m_shortcutEdit->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_shortcutEdit->setFocusPolicy(Qt::NoFocus);
    m_shortcutEdit->setVisible(false);
    fitPlaceholder();

    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(8, 2, 8, 2);
    layout->setSpacing(2);
    layout->addWidget(m_title);
    layout->setAlignment(m_title, Qt::AlignLeft);
    layout->addWidget(m_editButton, 1);
    layout->addStretch();
    layout->addWidget(m_removeButton, 1);
    layout->addWidget(m_key);
    layout->addWidget(m_shortcutEdit, 0, Qt::AlignRight | Qt::AlignVCenter);
    setLayout(layout);

    connect(m_editButton, &ZIconButton::clicked, this, &ShortcutItem::onShortcutEdit);
    connect(m_removeButton, &ZIconButton::clicked, this, &ShortcutItem::onRemoveClick);
}

void ShortcutItem::setTitle(const QString &title)
{
    m_info.name = title;
    m_title->setText(shownTitle());
    QTimer::singleShot(0, this, &ShortcutItem::updateTitleSize);
    setAccessibleName(shownTitle());
    //: Name of a button that has only an icon, in the row of this shortcut.
    m_editButton->setAccessibleName(tr("Edit the shortcut for “%1”").arg(shownTitle()));
    //: Name of a button that has only an icon, in the row of this shortcut.
    m_removeButton->setAccessibleName(tr("Remove the shortcut for “%1”").arg(shownTitle()));
}

void ShortcutItem::setShortcut(const QString &accels)
{
    setEditMode(false);
    showShortcut();
    m_info.accels = accels;
    m_key->setTextList(keyNames(showntext::cut(accels, showntext::longestShortcut)));
    setAccessibleDescription(m_key->text());
}

void ShortcutItem::setShortcutInfo(const ShortcutInfo &info)
{
    setTitle(m_info.name);
    setShortcut(info.accels);
}

void ShortcutItem::onShortcutEdit()
{
    Q_EMIT shortcutEditChanged(m_info);
}

void ShortcutItem::onRemoveClick()
{
    Q_EMIT requestRemove(m_info);
}

void ShortcutItem::onEditMode(bool on)
{
    setEditMode(on);
    m_shortcutEdit->hide();
    m_key->setVisible(!on);
    update();
}

bool ShortcutItem::isInEditMode() const
{
    return m_removeButton->isVisible();
}

void ShortcutItem::press()
{
    if (isEnabled())
        activate(true);
}

void ShortcutItem::updateTitleSize()
{
    show();
    const int space = titleSpace();
    if (titleWidth() <= space)
        return;
    // Half of the space only: an elided title leaves the shortcut clearly apart.
    m_title->setText(m_title->fontMetrics().elidedText(m_title->text(), Qt::ElideRight, space / 2));
}

// The title counts with its full text, whether elided or not: a row whose size followed the elision
// would change the size that the elision follows, for ever, in a container that grants every wish.
QSize ShortcutItem::sizeHint() const
{
    const QFontMetrics metrics = m_title->fontMetrics();
    const int usual = metrics.averageCharWidth() * usualTitleLength;
    const int title = qMin(metrics.horizontalAdvance(shownTitle()), usual) + titleReserve;
    const QSize hint = zcc::widgets::SettingsItem::sizeHint();
    return QSize(hint.width() - m_title->sizeHint().width() + title, hint.height());
}

QSize ShortcutItem::minimumSizeHint() const
{
    return sizeHint();
}

void ShortcutItem::resizeEvent(QResizeEvent *event)
{
    zcc::widgets::SettingsItem::resizeEvent(event);
    const int space = titleSpace();
    const int width = titleWidth();
    QTimer::singleShot(0, this, [this, space, width] {
        if (space >= width)
            m_title->setText(shownTitle());
        else
            updateTitleSize();
    });
}

// The base handler is left out: the row takes the click.
void ShortcutItem::mouseReleaseEvent(QMouseEvent *event)
{
    activate(m_key->rect().contains(m_key->mapFrom(this, event->pos())));
}

void ShortcutItem::keyPressEvent(QKeyEvent *event)
{
    if (!isClick(event))
        zcc::widgets::SettingsItem::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        press();
}

void ShortcutItem::paintEvent(QPaintEvent *event)
{
    zcc::widgets::SettingsItem::paintEvent(event);
    if (!hasFocus() || isInEditMode())
        return;
    const QWidget *control = m_key->isVisible() ? static_cast<QWidget *>(m_key) : m_shortcutEdit;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = control->geometry() + focusMargins;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void ShortcutItem::changeEvent(QEvent *event)
{
    zcc::widgets::SettingsItem::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitPlaceholder();
}

// The row itself is a control only while its buttons are not. They must not keep the focus when
// they are hidden: Space would still work on them.
void ShortcutItem::setEditMode(bool on)
{
    setFocusPolicy(on ? Qt::NoFocus : Qt::TabFocus);
    const QWidget *focus = window()->focusWidget();
    if (!on && (focus == m_editButton || focus == m_removeButton))
        setFocus();
    m_removeButton->setVisible(on);
    m_editButton->setVisible(on);
}

void ShortcutItem::showShortcut()
{
    m_shortcutEdit->hide();
    m_key->show();
}

// What a click does; @p onCaps says whether it fell on the key caps.
void ShortcutItem::activate(bool onCaps)
{
    if (isInEditMode())
        return;
    if (m_shortcutEdit->isVisible() || !onCaps) {
        showShortcut();
        return;
    }
    m_key->hide();
    m_shortcutEdit->show();
    Q_EMIT requestUpdateKey(m_info);
}

// Width left for the title beside the caps, in pixels.
int ShortcutItem::titleSpace() const
{
    return width() - m_key->width() - titleReserve;
}

// Width of the title as it now stands, elided or not.
int ShortcutItem::titleWidth() const
{
    return m_title->fontMetrics().horizontalAdvance(m_title->text());
}

// The title before it is elided.
QString ShortcutItem::shownTitle() const
{
    return showntext::cut(m_info.name, showntext::longestTitle);
}

// A line edit asks for some width of its own; this one holds a known text.
void ShortcutItem::fitPlaceholder()
{
    QStyleOptionFrame option;
    option.initFrom(m_shortcutEdit);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, m_shortcutEdit);
    option.rect = QRect(0, 0, ample, ample);
    const QRect inside =
        style()->subElementRect(QStyle::SE_LineEditContents, &option, m_shortcutEdit);
    const int text =
        m_shortcutEdit->fontMetrics().horizontalAdvance(m_shortcutEdit->placeholderText());
    m_shortcutEdit->setMinimumWidth(text + textMargins + ample - inside.width());
}
