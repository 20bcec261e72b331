#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace controlcenter {

class WorldDrawer;

/**
 * A content with the world's drawer at its trailing edge. Where there is no room for both, the
 * drawer has all of it while it is open.
 */
class DrawerSide : public QWidget
{
    Q_OBJECT

public:
    /**
     * Owns @p content, and the drawer, which @p build makes when it is first opened. F12 opens and
     * closes it.
     */
    DrawerSide(QWidget *content, std::function<WorldDrawer *()> build, QWidget *parent = nullptr);

    /** Null before it was first opened. */
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
    std::function<WorldDrawer *()> m_build;
    WorldDrawer *m_drawer = nullptr;
    QPointer<QWidget> m_focusBefore;
};

} // namespace controlcenter
