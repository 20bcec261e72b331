#pragma once

#include <QAccessible>
#include <QVector>
#include <QWidget>

#include <functional>

namespace controlcenter {

/** Whether what has @p role is there to be operated. */
bool isControlRole(QAccessible::Role role);

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

/**
 * What the focus goes to with each call of @p press, which presses Tab for instance. Ends at
 * @p last, or when the focus comes to a widget again or is nowhere.
 */
QVector<QWidget *> focusStops(const std::function<void()> &press, const QWidget *last = nullptr);

} // namespace controlcenter
