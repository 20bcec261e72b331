#pragma once

#include "ztk/ztkglobal.h"

#include <QProxyStyle>

namespace Ztk {
namespace Widget {

/**
 * The desktop's widget style, in the colours of the palette in force.
 *
 * ZApplicationSetup::install() puts it in force; QApplication owns it. Controls are at least
 * minimumHitHeight logical pixels high, and what it draws is sharp at every display scale. What it
 * does not draw itself is Fusion's.
 */
class ZTK_EXPORT ZStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr int minimumHitHeight = 36;

    /** Icons of the toolkit's own, beyond those of QStyle. */
    enum ToolkitPixmap : unsigned {
        SP_RemoveButton = 0xF000001B, ///< Takes an entry out of a list.
    };

    ZStyle();

    /** The icon of one of the toolkit's own numbers; null for any other. Needs no ZStyle in force.
     */
    static QIcon toolkitIcon(QStyle::StandardPixmap icon);

    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
    bool eventFilter(QObject *watched, QEvent *event) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;

    void drawItemText(QPainter *painter, const QRect &rect, int flags, const QPalette &palette,
                      bool enabled, const QString &text,
                      QPalette::ColorRole textRole = QPalette::NoRole) const override;

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                         SubControl subControl, const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *returnData = nullptr) const override;

    QIcon standardIcon(QStyle::StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                const QStyleOption *option) const override;
};

} // namespace Widget
} // namespace Ztk
