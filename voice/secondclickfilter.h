#pragma once

#include <QObject>

class QWidget;

/**
 * Keeps from a widget the second click of a double click that began on another one: on what stood
 * in its place before, and went with the first click. A widget that is hidden begins anew.
 */
class SecondClickFilter : public QObject
{
public:
    /** Belongs to @p widget. */
    explicit SecondClickFilter(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_pressed = false;                         // since it is shown
    Qt::MouseButton m_foreignButton = Qt::NoButton; // held from a double click that began elsewhere
};
