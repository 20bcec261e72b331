#include "voice/secondclickfilter.h"

#include <QMouseEvent>
#include <QWidget>

SecondClickFilter::SecondClickFilter(QWidget *widget)
    : QObject(widget)
{
    widget->installEventFilter(this);
}

bool SecondClickFilter::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_pressed = true;
        m_foreignButton = Qt::NoButton;
        return false;
    case QEvent::MouseButtonDblClick:
        if (m_pressed)
            return false;
        m_foreignButton = static_cast<QMouseEvent *>(event)->button();
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() != m_foreignButton)
            return false;
        m_foreignButton = Qt::NoButton;
        return true;
    case QEvent::Hide:
        m_pressed = false;
        m_foreignButton = Qt::NoButton;
        return false;
    default:
        return false;
    }
}
