#include "sandbox/controlcenter/worlddrawer/choicerow.h"

#include "sandbox/controlcenter/windowstyle.h"

#include <ztk/zfontsizemanager.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {

// The wheel scrolls the drawer: on its way over a list it would change what is behind it.
class ChoiceRow::Box : public QComboBox
{
public:
    bool opensFirst = false; // before a key chooses

    // Qt measures the ink of the texts, and a line of them can be wider.
    QSize sizeHint() const override
    {
        int width = 0;
        for (int i = 0; i < count(); ++i)
            width = qMax(width, fontMetrics().horizontalAdvance(itemText(i)));
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QSize text(width, fontMetrics().height());
        return style()
                   ->sizeFromContents(QStyle::CT_ComboBox, &option, text, this)
                   .expandedTo(QComboBox::sizeHint()) +
               QSize(4, 0);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }
    void keyPressEvent(QKeyEvent *event) override
    {
        const int key = event->key();
        if (!opensFirst || key == Qt::Key_Space || key == Qt::Key_F4)
            QComboBox::keyPressEvent(event);
        else if (key == Qt::Key_Up || key == Qt::Key_Down)
            showPopup();
        else
            QWidget::keyPressEvent(event);
    }
};

ChoiceRow::ChoiceRow(const QString &title, QWidget *parent)
    : SettingsItem(parent)
    , m_title(new LeadingLabel(title))
    , m_box(new Box)
    , m_sentences(new LeadingLabel(QString(), Qt::AlignTop))
    , m_below(new QWidget)
{
    addBackground();
    m_title->setWordWrap(true);
    m_box->setAccessibleName(title);
    m_title->setBuddy(m_box); // assistive technologies know it by its label
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_sentences->setWordWrap(true);
    m_sentences->setFont(ZFontSizeManager::instance()->get(ZFontSizeManager::T7, font()));

    // Apart from the title, which is the row's only one.
    auto *below = new QVBoxLayout(m_below);
    below->setContentsMargins(0, 0, 0, 4);
    below->addWidget(m_sentences);
    m_below->hide();

    m_head = new QBoxLayout(QBoxLayout::LeftToRight);
    m_head->addWidget(m_title, 1);
    m_head->addWidget(m_box, 0, Qt::AlignTrailing);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(zcc::widgets::rowPadding, 4, zcc::widgets::rowPadding, 4);
    layout->addLayout(m_head);
    layout->addWidget(m_below);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this, &ChoiceRow::chosen);
    updateColors();
}

void ChoiceRow::addChoice(const QString &text)
{
    m_box->addItem(text);
}

void ChoiceRow::setChosenFromList()
{
    m_box->opensFirst = true;
}

void ChoiceRow::setChoice(int index)
{
    m_box->setCurrentIndex(index);
}

// A screen reader says them with the choice. A label is only changed while it is seen: nothing is
// told of those that are not.
void ChoiceRow::setSentences(const QStringList &sentences)
{
    if (!sentences.isEmpty())
        m_below->show();
    m_sentences->setText(sentences.join(QLatin1Char('\n')));
    m_below->setVisible(!sentences.isEmpty());
    m_box->setAccessibleDescription(sentences.join(QLatin1Char(' ')));
}

void ChoiceRow::focusChoice()
{
    m_box->setFocus(Qt::ShortcutFocusReason);
}

void ChoiceRow::setUsable(bool usable)
{
    m_box->setEnabled(usable);
}

int ChoiceRow::besideWidth() const
{
    return m_title->minimumSizeHint().width() + m_head->spacing() + m_box->sizeHint().width() +
           2 * zcc::widgets::rowPadding;
}

QSize ChoiceRow::minimumSizeHint() const
{
    const int width = qMax(m_title->minimumSizeHint().width(), m_box->sizeHint().width());
    return {width + 2 * zcc::widgets::rowPadding, SettingsItem::minimumSizeHint().height()};
}

void ChoiceRow::resizeEvent(QResizeEvent *event)
{
    const auto direction =
        width() < besideWidth() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (direction != m_head->direction()) {
        m_head->setDirection(direction);
        updateGeometry(); // which the layout does not do by itself
    }
    SettingsItem::resizeEvent(event);
}

void ChoiceRow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        updateColors();
    SettingsItem::changeEvent(event);
}

void ChoiceRow::updateColors()
{
    QPalette secondary = palette();
    secondary.setColor(QPalette::WindowText, secondaryTextColor(palette()));
    m_sentences->setPalette(secondary);
    // A list that cannot be used is still to be seen.
    QPalette outlined = palette();
    outlined.setColor(QPalette::Disabled, QPalette::Mid,
                      outlined.color(QPalette::Active, QPalette::Mid));
    m_box->setPalette(outlined);
}

} // namespace controlcenter
