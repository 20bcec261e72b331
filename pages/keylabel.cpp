#include "pages/keylabel.h"

#include "pages/accessiblefactory.h"
#include "pages/keydisplaynames.h"
#include "pages/showntext.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace {
constexpr int sidePadding = 18;   // pixels, left and right together
constexpr int heightPadding = 10; // pixels, above and below together

class KeyLabelAccessible : public QAccessibleWidget
{
public:
    explicit KeyLabelAccessible(KeyLabel *cap)
        : QAccessibleWidget(cap, QAccessible::StaticText)
    {
    }

    // Not the widget's own name, of which Qt would tell while the cap is not shown yet.
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? static_cast<KeyLabel *>(widget())->text()
                                         : QAccessibleWidget::text(text);
    }
};
} // namespace

KeyLabel::KeyLabel(const QString &text, QWidget *parent)
    : QWidget(parent)
{
    const QString shown = keyDisplayNames.value(text);
    if (text.isEmpty()) {
        //: On a key cap: no key is set.
        m_text = tr("None");
    } else {
        m_text = showntext::cut(shown.isEmpty() ? text : shown, showntext::longestShortcut);
    }
    accessiblefactory::install<KeyLabel, KeyLabelAccessible>();
    fitWidthToText();
}

QString KeyLabel::text() const
{
    return m_text;
}

void KeyLabel::setEnter(bool enter)
{
    m_enter = enter;
    update();
}

// The width is the minimum; the height lets a row grow with the font.
QSize KeyLabel::sizeHint() const
{
    return QSize(minimumWidth(), fontMetrics().height() + heightPadding);
}

void KeyLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);

    // Not initialised from the widget: a cap looks the same in every state of its row, and its
    // colours are the application's.
    QStyleOptionButton option;
    option.rect = rect();
    option.text = m_text;

    QPalette &palette = option.palette;
    palette.setBrush(QPalette::Light, palette.base());
    palette.setBrush(QPalette::Dark, palette.base());
    palette.setBrush(QPalette::ButtonText, palette.highlight());
    palette.setBrush(QPalette::Shadow, QBrush(Qt::transparent));

    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
}

void KeyLabel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidthToText();
}

void KeyLabel::fitWidthToText()
{
    setMinimumWidth(QFontMetrics(QApplication::font()).horizontalAdvance(m_text) + sidePadding);
}
