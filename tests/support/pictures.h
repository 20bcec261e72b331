#pragma once

#include <ztk/zapplicationsetup.h>

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QRect>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <memory>

namespace testsupport {

/** Looking at pictures of widgets: what a person would see, as numbers. */
namespace pictures {

inline QImage of(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

/** How many pixels of @p image inside of @p area are @p color, up to @p tolerance per channel. */
inline int count(const QImage &image, const QColor &color, QRect area = QRect(), int tolerance = 3)
{
    if (area.isNull())
        area = image.rect();
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) <= tolerance &&
                qAbs(pixel.green() - color.green()) <= tolerance &&
                qAbs(pixel.blue() - color.blue()) <= tolerance && pixel.alpha() > 128)
                ++found;
        }
    }
    return found;
}

/** The smallest rectangle around the pixels that are @p color; null when there is none. */
inline QRect boundsOf(const QImage &image, const QColor &color, int tolerance = 3)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (count(image, color, QRect(x, y, 1, 1), tolerance))
                bounds |= QRect(x, y, 1, 1);
    }
    return bounds;
}

} // namespace pictures

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
