#pragma once

#include <QRect>
#include <QStringList>
#include <QVector>

class QWidget;

namespace controlcenter {

/** Something that is wrong with a window, and where on it. */
struct LookProblem
{
    QRect place;
    QString text;
};

/** What is wrong, without the places. */
QStringList textsOf(const QVector<LookProblem> &problems);

/**
 * What a person with a ruler finds wrong on @p window, which is shown: texts that do not fit into
 * their labels or controls, widgets that lie over each other or leave their parent, controls that
 * are hard to hit, and titles and controls of rows that do not line up. Empty when all is well.
 */
QVector<LookProblem> layoutProblems(const QWidget *window);

/** Declares that @p widget is meant to lie over its siblings, as a popup is. */
void setOverlay(QWidget *widget);

} // namespace controlcenter
