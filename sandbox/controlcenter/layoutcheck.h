#pragma once

#include <QStringList>

class QWidget;

namespace controlcenter {

/**
 * What a person with a ruler finds wrong on @p window, which is shown: texts that do not fit into
 * their labels or controls, widgets that lie over each other or leave their parent, controls that
 * are hard to hit, and titles and controls of rows that do not line up. Empty when all is well.
 */
QStringList layoutProblems(const QWidget *window);

/** Declares that @p widget is meant to lie over its siblings, as a popup is. */
void setOverlay(QWidget *widget);

} // namespace controlcenter
