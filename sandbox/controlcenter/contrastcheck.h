#pragma once

#include "sandbox/controlcenter/layoutcheck.h"

class QImage;

namespace controlcenter {

/**
 * What is hard to see in @p picture, the picture of @p window as it is now, by the measures of WCAG
 * 2.1 AA: texts below 4.5 : 1, large ones below 3 : 1, and outlines of controls and marks of chosen
 * rows below 3 : 1. Of what cannot be operated, only the outline counts. The colour of tips is the
 * desktop's own and not asked for. Empty when all is well.
 */
QVector<LookProblem> contrastProblems(const QWidget *window, const QImage &picture);

} // namespace controlcenter
