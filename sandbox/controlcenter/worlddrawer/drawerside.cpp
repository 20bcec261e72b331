#include "sandbox/controlcenter/worlddrawer/drawerside.h"

#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <ztk/zfontsizemanager.h>

#include <QHBoxLayout>
#include <QShortcut>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

// Beside a narrower content the drawer would leave nothing to look at. With usual texts.
constexpr int leastContent = 400; // px

} // namespace

DrawerSide::DrawerSide(QWidget *content, const QVector<ServiceWatch *> &watches, QWidget *parent)
    : QWidget(parent)
    , m_content(content)
    , m_drawer(new WorldDrawer(watches))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_content, 1);
    layout->addWidget(m_drawer);
    m_drawer->hide();
    connect(m_drawer, &WorldDrawer::closeRequested, this, &DrawerSide::closeDrawer);
    connect(new QShortcut(Qt::Key_F12, this), &QShortcut::activated, this,
            [this] { isOpen() ? closeDrawer() : openDrawer(); });
}

WorldDrawer *DrawerSide::drawer() const
{
    return m_drawer;
}

bool DrawerSide::isOpen() const
{
    return !m_drawer->isHidden();
}

void DrawerSide::openDrawer()
{
    if (isOpen())
        return;
    m_focusBefore = window()->focusWidget();
    m_drawer->show();
    arrange();
    controlsOf(m_drawer).constFirst()->setFocus(Qt::ShortcutFocusReason);
}

void DrawerSide::closeDrawer()
{
    if (!isOpen())
        return;
    m_drawer->hide();
    arrange();
    if (m_focusBefore)
        m_focusBefore->setFocus(Qt::ShortcutFocusReason);
}

void DrawerSide::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void DrawerSide::arrange()
{
    const int wanted = m_drawer->sizeHint().width();
    const bool both = width() >= wanted + ZFontSizeManager::instance()->scaled(leastContent);
    m_drawer->setMinimumWidth(qMin(wanted, width()));
    m_drawer->setMaximumWidth(both ? wanted : QWIDGETSIZE_MAX);
    m_content->setVisible(both || !isOpen());
    layout()->activate();
}

} // namespace controlcenter
