#include "sandbox/controlcenter/themebutton.h"

#include "sandbox/controlcenter/accessibleroles.h"

#include <ztk/zfocustracker.h>
#include <ztk/zfontsizemanager.h>
#include <ztk/zpainting.h>

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

using Ztk::Widget::ZFocusTracker;
using Ztk::Widget::ZFontSizeManager;
using Ztk::Widget::ZPainting;

namespace controlcenter {
namespace {

constexpr int side = 36;          // px, a comfortable target
constexpr int symbolSide = 20;    // px
constexpr qreal buttonRadius = 8; // px

} // namespace

ThemeButton::ThemeButton(QWidget *parent)
    : QPushButton(parent)
    , m_choice(new ThemeChoice(this))
    , m_actions(new QActionGroup(this))
{
    installAccessibleRoles(); // before it has a name: Qt tells of it, and keeps whom it has asked
    setMenu(new QMenu(this));
    for (int choice = 0; choice < ThemeChoice::names().size(); ++choice)
        addChoice(ThemeChoice::Choice(choice));
    setIcon(QIcon::fromTheme(QStringLiteral("zcc_theme")));
    setAccessibleName(tr("Theme"));
    setAttribute(Qt::WA_Hover);
    setFlat(true);
    setFixedSize(sizeHint());
    connect(m_choice, &ThemeChoice::changed, this, &ThemeButton::showChoice);
    showChoice();
}

ThemeChoice *ThemeButton::choice() const
{
    return m_choice;
}

QSize ThemeButton::sizeHint() const
{
    const int scaled = ZFontSizeManager::instance()->scaled(side);
    return {scaled, scaled};
}

void ThemeButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText);
    if (underMouse() || isDown())
        ZPainting::fillRounded(
            &painter, rect(), buttonRadius,
            ZPainting::blend(palette().color(QPalette::Window), text, isDown() ? 0.16 : 0.08));
    if (ZFocusTracker::showsFocus(this))
        ZPainting::drawFocusRing(&painter, rect(), buttonRadius, palette());
    const int scaledSide = ZFontSizeManager::instance()->scaled(symbolSide);
    QRect symbol(0, 0, scaledSide, scaledSide);
    symbol.moveCenter(rect().center());
    ZPainting::drawIcon(&painter, symbol, icon(), text);
}

void ThemeButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        showMenu();
    else
        QPushButton::keyPressEvent(event);
}

void ThemeButton::addChoice(ThemeChoice::Choice choice)
{
    QAction *action = menu()->addAction(ThemeChoice::textOf(choice));
    action->setCheckable(true);
    action->setData(choice);
    m_actions->addAction(action);
    connect(action, &QAction::triggered, m_choice, [this, choice] { m_choice->choose(choice); });
}

void ThemeButton::showChoice()
{
    for (QAction *action : m_actions->actions()) {
        if (action->data().toInt() != m_choice->choice())
            continue;
        action->setChecked(true);
        setAccessibleDescription(action->text());
        setToolTip(tr("Theme: %1").arg(action->text()));
    }
}

} // namespace controlcenter
