#include "ztk/zstyle.h"

#include "accessibleselection.h"
#include "buttonlook.h"
#include "controllook.h"
#include "inputlook.h"
#include "menulook.h"
#include "scrollbarlook.h"
#include "ztk/zpainting.h"

#include <QComboBox>
#include <QFrame>
#include <QGuiApplication>
#include <QIcon>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace Ztk {
namespace Widget {

namespace {

constexpr int rowSidePadding = 10; ///< Default layout margins give rows the desktop's padding.
constexpr int rowVerticalPadding = 6;
constexpr int rowSpacing = 10;

bool isComboBoxList(const QObject *object)
{
    return object->inherits("QComboBoxPrivateContainer");
}

/**
 * On Wayland a program does not know where on the screen its windows are, so Qt cannot keep on it
 * what opens beside a window's edge. On the window, it is seen wherever that is.
 */
void keepOnWindow(QWidget *popup)
{
    const QWidget *owner = popup->parentWidget();
    if (!owner || !QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return;
    const QRect room = owner->window()->geometry();
    const QPoint most = room.bottomRight() - popup->rect().bottomRight();
    popup->move(qMax(room.left(), qMin(popup->x(), most.x())),
                qMax(room.top(), qMin(popup->y(), most.y())));
}

/** On these platforms nobody watches, and pictures are to be the same every time. */
bool isHeadless()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

} // namespace

ZStyle::ZStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

QIcon ZStyle::toolkitIcon(QStyle::StandardPixmap icon)
{
    if (icon == QStyle::StandardPixmap(SP_RemoveButton))
        return QIcon::fromTheme(QStringLiteral("ztk_remove"));
    return QIcon();
}

void ZStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (isComboBoxList(widget)) {
        widget->setContentsMargins(menulook::listMargins);
        widget->installEventFilter(this);
    }
    if (qobject_cast<QMenu *>(widget))
        widget->installEventFilter(this);
    else if (qobject_cast<QLineEdit *>(widget))
        widget->setAttribute(Qt::WA_Hover);
    else if (auto *list = qobject_cast<QListView *>(widget))
        AccessibleSelection::install(list);
}

bool ZStyle::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show)
        keepOnWindow(static_cast<QWidget *>(watched));
    // A list that has a shape draws no panel of its own.
    if (event->type() == QEvent::Paint && isComboBoxList(watched)) {
        auto *list = static_cast<QWidget *>(watched);
        QStyleOption option;
        option.initFrom(list);
        QPainter painter(list);
        drawPrimitive(PE_PanelMenu, &option, &painter, list);
    }
    return QProxyStyle::eventFilter(watched, event);
}

void ZStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const
{
    switch (element) {
    case PE_IndicatorCheckBox:
        buttonlook::drawCheckIndicator(painter, option);
        return;
    case PE_FrameFocusRect:
        if (controllook::showsFocus(option)) {
            ZPainting::drawFocusRing(painter, option->rect, ZPainting::controlRadius,
                                     option->palette);
        }
        return;
    case PE_PanelLineEdit: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (frame && frame->lineWidth > 0)
            inputlook::drawLineEdit(painter, option);
        return;
    }
    case PE_PanelMenu:
        menulook::drawPanel(painter, option, menulook::surface(), menulook::panelRadius);
        return;
    case PE_PanelTipLabel:
        menulook::drawPanel(painter, option, option->palette.color(QPalette::ToolTipBase), 0);
        return;
    case PE_FrameMenu:
        return; // part of the panel
    case PE_Frame:
        ZPainting::frameRounded(painter, option->rect, ZPainting::controlRadius,
                                controllook::color(option, QPalette::Mid),
                                ZPainting::hairline(painter));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ZStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                         const QWidget *widget) const
{
    if (element == CE_PushButton) {
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            buttonlook::drawPushButton(painter, button, proxy(), widget);
            return;
        }
    } else if (element == CE_CheckBox) {
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            buttonlook::drawCheckBox(painter, button);
            return;
        }
    } else if (element == CE_ComboBoxLabel) {
        if (const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option)) {
            inputlook::drawComboBoxLabel(painter, box, inputlook::comboBoxField(option));
            return;
        }
    } else if (element == CE_MenuEmptyArea) {
        painter->fillRect(option->rect, menulook::surface());
        return;
    } else if (element == CE_MenuItem) {
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
            menulook::drawItem(painter, item, qobject_cast<const QComboBox *>(widget));
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ZStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                QPainter *painter, const QWidget *widget) const
{
    if (control == CC_ComboBox) {
        if (const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option)) {
            inputlook::drawComboBox(painter, box);
            return;
        }
    } else if (control == CC_ScrollBar) {
        if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option)) {
            scrollbarlook::draw(painter, bar);
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void ZStyle::drawItemText(QPainter *painter, const QRect &rect, int flags, const QPalette &palette,
                          bool, const QString &text, QPalette::ColorRole textRole) const
{
    const QPen pen = painter->pen();
    if (textRole != QPalette::NoRole)
        painter->setPen(QPen(palette.brush(textRole), pen.widthF()));
    ZPainting::drawText(painter, rect, flags, text);
    painter->setPen(pen);
}

QSize ZStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                               const QWidget *widget) const
{
    switch (type) {
    case CT_PushButton:
        return buttonlook::pushButtonSize(size);
    case CT_CheckBox:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option))
            return buttonlook::checkBoxSize(button);
        break;
    case CT_ComboBox:
        return inputlook::comboBoxSize(size);
    case CT_MenuItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option))
            return menulook::itemSize(item);
        break;
    case CT_LineEdit:
        return QProxyStyle::sizeFromContents(type, option, size, widget)
            .expandedTo(QSize(0, minimumHitHeight));
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect ZStyle::subElementRect(SubElement element, const QStyleOption *option,
                             const QWidget *widget) const
{
    switch (element) {
    case SE_CheckBoxIndicator:
        return buttonlook::indicatorRect(option);
    case SE_CheckBoxContents:
        return buttonlook::labelRect(option);
    case SE_CheckBoxLayoutItem:
    case SE_CheckBoxClickRect:
        return option->rect;
    case SE_CheckBoxFocusRect:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option))
            return buttonlook::focusRect(button);
        break;
    case SE_LineEditContents: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (!frame || frame->lineWidth <= 0)
            break;
        // QLineEdit itself adds 2 px on each side.
        QRect contents =
            option->rect.adjusted(inputlook::sidePadding - 2, 1, -(inputlook::sidePadding - 2), -1);
        if (widget)
            contents.translate(0, ZPainting::middleShift(widget->fontMetrics()));
        return contents;
    }
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect ZStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                             SubControl subControl, const QWidget *widget) const
{
    if (control == CC_ComboBox) {
        if (subControl == SC_ComboBoxEditField)
            return inputlook::comboBoxField(option);
        if (subControl == SC_ComboBoxArrow)
            return inputlook::comboBoxArrow(option);
    } else if (control == CC_ScrollBar) {
        if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option))
            return scrollbarlook::partRect(bar, subControl);
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

int ZStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
        return rowSidePadding;
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
        return rowVerticalPadding;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return rowSpacing;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return buttonlook::indicatorSize();
    case PM_ScrollBarExtent:
        return scrollbarlook::extent;
    case PM_ScrollBarSliderMin:
        return scrollbarlook::minimumHandleLength;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    case PM_MenuVMargin:
        return menulook::panelMargin;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ZStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                      QStyleHintReturn *returnData) const
{
    switch (hint) {
    case SH_Widget_Animation_Duration:
        if (isHeadless())
            return 0;
        break;
    case SH_ComboBox_Popup:
        return 1; // a menu-like list that opens over the combo box
    case SH_Menu_Mask:
        if (auto *mask = qstyleoption_cast<QStyleHintReturnMask *>(returnData))
            mask->region = menulook::panelShape(option->rect.size());
        return 1;
    case SH_ComboBox_PopupFrameStyle:
        return QFrame::NoFrame;           // the panel has a frame
    case SH_ComboBox_AllowWheelScrolling: // scrolling a page must not change what is under the
                                          // mouse
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    default:
        break;
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QIcon ZStyle::standardIcon(QStyle::StandardPixmap icon, const QStyleOption *option,
                           const QWidget *widget) const
{
    const QIcon own = toolkitIcon(icon);
    return own.isNull() ? QProxyStyle::standardIcon(icon, option, widget) : own;
}

QPixmap ZStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                    const QStyleOption *option) const
{
    if ((mode == QIcon::Selected || mode == QIcon::Disabled) && ZPainting::isSymbol(pixmap)) {
        const QColor color =
            mode == QIcon::Selected
                ? option->palette.color(QPalette::Active, QPalette::HighlightedText)
                : option->palette.color(QPalette::Disabled, QPalette::WindowText);
        return ZPainting::tinted(pixmap, color);
    }
    return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
}

} // namespace Widget
} // namespace Ztk
