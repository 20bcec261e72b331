#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

namespace controlcenter {

class ServiceWatch;
class WorldDrawer;

/**
 * A content with the world's drawer at its trailing edge. Where there is no room for both, the
 * drawer has all of it while it is open.
 */
class DrawerSide : public QWidget
{
    Q_OBJECT

public:
    /** Owns @p content. The drawer steers @p watches; it is closed. F12 opens and closes it. */
    DrawerSide(QWidget *content, const QVector<ServiceWatch *> &watches, QWidget *parent = nullptr);

    WorldDrawer *drawer() const;
    bool isOpen() const;

public Q_SLOTS:
    /** Opens the drawer, with the focus in it. */
    void openDrawer();

    /** Closes it, and puts the focus where it was. */
    void closeDrawer();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrange();

    QWidget *m_content;
    WorldDrawer *m_drawer;
    QPointer<QWidget> m_focusBefore;
};

} // namespace controlcenter
