#pragma once

#include <QWidget>

namespace Ztk {
namespace Widget {

/**
 * Lets screen readers say at once what programs tell assistive technologies by Qt's own events:
 * alerts, and the value of a combo box that has the focus. With Qt 5.15, Orca says neither of them;
 * what it says is a widget with the role of a notification that appears.
 */
namespace announcer {

/** Begins with it. Further calls change nothing. */
void install();

} // namespace announcer

/** What a window has to say. Nothing is to be seen of it. */
class Announcement : public QWidget
{
    Q_OBJECT

public:
    /** The window's one; made at the first call. */
    static Announcement *of(QWidget *window);

    /** Has it said. */
    void say(const QString &text);

private:
    explicit Announcement(QWidget *window);
};

} // namespace Widget
} // namespace Ztk
