#pragma once

#include "sandbox/controlcenter/tour/tourdriver.h"
#include "sandbox/controlcenter/tour/tourstep.h"

#include <QDir>

namespace controlcenter {

/** Runs steps one after the other, says how each went, and writes its picture. */
class Tour
{
public:
    /**
     * Pictures go to @p folder, which is made when it is missing; those of an earlier tour are
     * removed.
     */
    Tour(ControlCenterWindow *window, const QString &folder);

    /** True when every step was as expected and every picture could be written. */
    bool run(const TourSteps &steps);

private:
    void removeOldPictures();

    /** What was not as expected; empty when all was well. @p file is the picture, or empty. */
    QString runStep(const TourStep &step, const QString &file);
    QString savePicture(const QString &file);

    TourDriver m_driver;
    QDir m_folder;
};

} // namespace controlcenter
