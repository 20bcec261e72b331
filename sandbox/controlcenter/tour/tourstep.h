#pragma once

#include <QString>
#include <QVector>

#include <functional>

namespace controlcenter {

class TourDriver;

/**
 * One step of the tour: what it does in words, the doing, and the picture that shows the result.
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

} // namespace controlcenter
