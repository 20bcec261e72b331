#pragma once

#include "ztk/ztkglobal.h"

#include <QObject>

namespace Ztk {
namespace Gui {

/**
 * The application's theme, light, dark or of high contrast, and the palette that goes with it.
 *
 * One per process, made on first use after the application object; GUI thread only.
 */
class ZTK_EXPORT ZGuiApplicationHelper : public QObject
{
    Q_OBJECT

public:
    enum ColorType {
        UnknownType = 0,
        LightType = 1,
        DarkType = 2,
        ContrastType = 3, ///< on a black ground, so for modules what is not light
    };
    Q_ENUM(ColorType)

    static ZGuiApplicationHelper *instance();

    /** The theme in force; LightType until setThemeType() is called. */
    ColorType themeType() const;

    /** Puts the theme and its palette in force. Called by the host, never by a module. */
    void setThemeType(ColorType type);

Q_SIGNALS:
    /** Another theme is in force, its palette already set. */
    void themeTypeChanged(Ztk::Gui::ZGuiApplicationHelper::ColorType type);

private:
    ZGuiApplicationHelper();

    ColorType m_type = LightType;
};

} // namespace Gui
} // namespace Ztk
