#pragma once

#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QDir>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace controlcenter {

/**
 * One step of the tour: what it does in words, the doing, and the picture that shows the result. A
 * step with a picture fails, too, when the window's layout is wrong in it or something is too pale.
 *
 * run() returns an empty text when everything was as expected, otherwise what was not.
 */
struct TourStep
{
    QString title;
    std::function<QString(TourDriver &)> run;
    QString picture; ///< name of the picture without number and suffix; empty: no picture
};

using TourSteps = QVector<TourStep>;

/** Runs steps one after the other, says how each went, and writes its picture. */
class Tour
{
public:
    /** Pictures go to @p folder. */
    Tour(ControlCenterWindow *window, const QString &folder);

    /**
     * Makes the folder and removes the pictures of an earlier tour. They are listed in a file of
     * the folder with their checksums: what is not, or is no longer what a tour has written, stays.
     * Returns what stands in the way of a tour with @p steps, in words, and touches nothing then.
     */
    QString prepareFolder(const TourSteps &steps);

    /** True when every step was as expected and every picture could be written. */
    bool run(const TourSteps &steps);

private:
    /** Whether the list in the folder, if there is one, is a tour's. */
    bool hasOwnList() const;

    /** The pictures in the folder that a tour has written. */
    QStringList ownPictures() const;

    /** What was not as expected; empty when all was well. @p file is the picture, or empty. */
    QString runStep(const TourStep &step, const QString &file);

    /** Takes the picture once the window's layout has settled; says what is wrong with either. */
    QString takePicture(const QString &file);
    QString savePicture(const QImage &image, const QString &file);

    TourDriver m_driver;
    QDir m_folder;
};

/** The names of the tour's sections, in their order. */
QStringList tourSections();

/** The steps of section @p name, for @p window with its module loaded. */
TourSteps tourSection(const QString &name, const ControlCenterWindow *window);

// The sections. Each is defined in the source file that is named after it, but for the icons, which
// are with the looks, and the drawer, which is with the services.

/**
 * Opens every page of the module in light and in dark, and one in the smallest window, from which
 * it goes back column by column, and in a large one.
 */
TourSteps pageSteps(const ControlCenterWindow *window);

/** Sheets with all of the module's icons at usual, one and a half and double scale. */
TourSteps iconSteps(const ControlCenterWindow *window);

/** Finds a page by typing part of its name, and opens it with the keyboard alone. */
TourSteps searchSteps(const ControlCenterWindow *window);

/** Flips switches with the space bar; the services must change, and a fresh page must show it. */
TourSteps switchSteps(const ControlCenterWindow *window);

/** Chooses in every list with the arrow keys; the service must change, and a fresh page show it. */
TourSteps choiceSteps(const ControlCenterWindow *window);

/**
 * Changes and removes shortcuts on the window's own page; a feature page must show the new one. The
 * keybinding service gets its old shortcuts back at the end.
 */
TourSteps shortcutSteps(const ControlCenterWindow *window);

/** The page of services: it shows what a switch has changed, and follows other programs. */
TourSteps serviceSteps(const ControlCenterWindow *window);

/** The drawer of what the module lives in: services that fail and recover. */
TourSteps worldSteps(const ControlCenterWindow *window);

/**
 * Goes by Tab from the search field to every control of every page and back with Shift+Tab; each
 * stop must be seen.
 */
TourSteps keyboardSteps(const ControlCenterWindow *window);

/**
 * Every page in all languages, light and dark, left to right and right to left, with usual and with
 * large texts, on one sheet each; nothing may be marked on it.
 */
TourSteps lookSteps(const ControlCenterWindow *window);

/**
 * Whole voice tests: one for each thing that the microphone can hear, one cancelled, one without
 * network and one that the AI service refuses. Each must end with the right verdict.
 */
TourSteps voiceSteps(const ControlCenterWindow *window);

} // namespace controlcenter
