#pragma once

#include "sandbox/controlcenter/tour/tourdriver.h"

#include <QDir>
#include <QString>
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

} // namespace controlcenter
