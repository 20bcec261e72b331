#pragma once

#include <QVector>
#include <QWidget>

namespace controlcenter {

/**
 * The controls inside @p page that the user can operate now, as assistive technologies see them:
 * check boxes, buttons, lists, fields, links and whatever else takes the focus, visible and
 * enabled. In tab order.
 */
QVector<QWidget *> controlsOf(QWidget *page);

/**
 * The name under which assistive technologies know @p widget: its own, or that of the label beside
 * it. Empty when it has none.
 */
QString accessibleNameOf(QWidget *widget);

/** The first control of @p page with the accessible name @p name, or null. */
QWidget *findControl(QWidget *page, const QString &name);

} // namespace controlcenter
