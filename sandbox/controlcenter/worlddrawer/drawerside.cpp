#include "sandbox/controlcenter/worlddrawer/drawerside.h"

#include "sandbox/controlcenter/pagecontrols.h"
#include "sandbox/controlcenter/worlddrawer/worlddrawer.h"

#include <ztk/zfontsizemanager.h>

#include <QHBoxLayout>
#include <QShortcut>

#include <utility>

using Ztk::Widget::ZFontSizeManager;

namespace controlcenter {
namespace {

// Beside a narrower content the drawer would leave nothing to look at. With usual texts.
constexpr int leastContent = 400; // px

// Beside a content that has room the drawer takes more of it. With usual texts.
constexpr int roomyContent = 900; // px

} // namespace

DrawerSide::DrawerSide(QWidget *content, std::function<WorldDrawer *()> build, QWidget *parent)
    : QWidget(parent)
    , m_content(content)
    , m_build(std::move(build))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_content, 1);
    connect(new QShortcut(Qt::Key_F12, this), &QShortcut::activated, this,
            [this] { isOpen() ? closeDrawer() : openDrawer(); });
}

WorldDrawer *DrawerSide::drawer() const
{
    return m_drawer;
}

bool DrawerSide::isOpen() const
{
    return m_drawer && !m_drawer->isHidden();
}

void DrawerSide::openDrawer()
{
    if (isOpen())
        return;
    if (!m_drawer) {
        m_drawer = m_build();
        layout()->addWidget(m_drawer);
        connect(m_drawer, &WorldDrawer::closeRequested, this, &DrawerSide::closeDrawer);
    }
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
    if (!m_drawer)
        return;
    const int wanted = m_drawer->sizeHint().width();
    const bool both = width() >= wanted + ZFontSizeManager::instance()->scaled(leastContent);
    const int left = both ? ZFontSizeManager::instance()->scaled(roomyContent) : 0;
    const bool wide = width() >= 2 * wanted + left;
    m_drawer->setWide(wide);
    m_drawer->setMinimumWidth(qMin(wide ? 2 * wanted : wanted, width()));
    m_drawer->setMaximumWidth(both ? (wide ? 2 * wanted : wanted) : QWIDGETSIZE_MAX);
    m_content->setVisible(both || !isOpen());
    layout()->activate();
}

} // namespace controlcenter
