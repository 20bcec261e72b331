#pragma once

#include <ztk/zapplicationsetup.h>

#include <QApplication>
#include <QPalette>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace testsupport {

/** A window with a settings row in it, in an application that looks as the desktop's. */
class ShownRow
{
public:
    /** The outermost pixels of a circle are covered in part only: what their colour may be off. */
    static constexpr int roundEdge = 90;

    /** Once for all tests of a class. */
    static void setUpApplication()
    {
        QFont font = QApplication::font();
        font.setPixelSize(14);
        QApplication::setFont(font);
        Ztk::Widget::ZApplicationSetup::install();
    }

    static QColor color(QPalette::ColorRole role) { return QApplication::palette().color(role); }

    /** Shows @p row, which goes with the window. False when the window does not become active. */
    bool show(QWidget *row, int width = 400)
    {
        auto *window = new QWidget;
        auto *layout = new QVBoxLayout(window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(row);
        layout->addStretch();
        window->resize(width, 300);
        return showWindow(window);
    }

    /** Shows another window in place of the one before. */
    bool showWindow(QWidget *window)
    {
        m_window.reset(window);
        window->show();
        return QTest::qWaitForWindowActive(window);
    }

    /** Nothing is shown any more. */
    void clear()
    {
        m_window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

private:
    std::unique_ptr<QWidget> m_window;
};

} // namespace testsupport
