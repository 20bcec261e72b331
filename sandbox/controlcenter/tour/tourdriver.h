#pragma once

#include "sandbox/controlcenter/themechoice.h"

#include <QAccessible>
#include <QImage>
#include <QString>

#include <functional>

class QWidget;

namespace controlcenter {

class ControlCenterWindow;

/**
 * Operates the window for the tour: presses real keys in it and looks at the result.
 *
 * It never calls into the module. Controls are found by the name that a screen reader says.
 */
class TourDriver
{
public:
    /** @p window is shown and outlives the driver. */
    explicit TourDriver(ControlCenterWindow *window);

    ControlCenterWindow *window() const;

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);

    /**
     * Processes events until @p condition holds, looking again after each of them. False when it
     * does not hold within @p milliseconds.
     */
    bool waitFor(const std::function<bool()> &condition, int milliseconds = 5000);

    /** Processes what is pending, deletions included, so that the window is as the user sees it. */
    void settle();

    /** The window's picture. */
    QImage grab();

    /** This step's picture is @p picture and not the window's. */
    void showPicture(const QImage &picture);

    /** The picture of this step in place of the window's, or null. */
    QImage takeShownPicture();

    /** From now on pictures have @p factor times the window's pixels in each direction. */
    void setPictureScale(int factor);

    /** Opens page @p name (untranslated) and waits until the heading shows it. */
    QString openPage(const QString &name);

    void setTheme(ThemeChoice::Choice theme);
    void setDark(bool dark);

    /** The shown page's control called @p name, or null. */
    QWidget *control(const QString &name) const;

    /** The shown page's control number @p index, in tab order, of those with @p role; or null. */
    QWidget *control(QAccessible::Role role, int index) const;

    /** Presses Tab from the search field on; false when @p target does not get the focus. */
    bool tabTo(QWidget *target);

private:
    ControlCenterWindow *m_window;
    int m_pictureScale = 1;
    QImage m_shown;
};

} // namespace controlcenter
