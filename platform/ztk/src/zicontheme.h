#pragma once

#include <QColor>
#include <QObject>
#include <QScopedPointer>
#include <QString>
#include <QTemporaryDir>

namespace Ztk {
namespace Gui {

/**
 * Makes QIcon::fromTheme("NAME") find compiled-in files
 * ":/icons/tavren/builtin/actions/NAME_<size>px.svg", whichever library or plugin brought them.
 *
 * Qt looks icons up in theme folders by plain file name, so the compiled-in files are written to a
 * theme in the user's cache, or else in a private temporary folder, one folder per size. Black,
 * spelled "#000000" in the file, becomes the theme's text colour; an icon in this one colour only
 * is also redrawn in the selection's text colour where it is selected. A plugin may bring its files
 * at any time: they are picked up before the next widget is polished or painted, or at once by
 * refresh().
 *
 * The theme is named after its contents: it is written once, all processes share it, and another
 * name makes Qt look all icons up again.
 *
 * Lives as long as the application object. GUI thread only.
 */
class ZIconTheme : public QObject
{
    Q_OBJECT

public:
    /** Makes the icon theme, once per application object; nothing without a GUI application. */
    static void install();

    /** Draws the icons in @p textColor from here on. */
    static void setTextColor(const QColor &textColor);

    /** Picks up files that were registered since the last time. */
    static void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit ZIconTheme(QObject *parent);
    QString themesFolder();
    void activate();
    void checkRendering();

    QScopedPointer<QTemporaryDir> m_ownFolder; ///< Where the usual ones cannot be used.
    QString m_folder;                          ///< Holds the themes; among Qt's search paths.
    QString m_fallbackTheme; ///< The theme in force before; it still serves all other names.
    QColor m_textColor;
    int m_fileCount = 0; ///< Compiled-in files when they were last looked at.
    bool m_checked = false;
};

} // namespace Gui
} // namespace Ztk
