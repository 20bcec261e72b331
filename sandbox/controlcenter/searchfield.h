#pragma once

#include <QLineEdit>

namespace Ztk {
namespace Widget {
class ZIconButton;
} // namespace Widget
} // namespace Ztk

namespace controlcenter {

/**
 * Where the user types what to look for. Up and Down move through the results, Enter opens one,
 * Escape clears, and so does a button, which is there while there is a text.
 */
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

    /** How it is used, for assistive technologies: Qt would tell them the placeholder once more. */
    static QString hint();

    /** Wide enough for all of the placeholder, and for the button. */
    QSize sizeHint() const override;

Q_SIGNALS:
    /** The user moves @p rows down (negative: up) in the results. */
    void moved(int rows);
    void accepted();
    void focusLost();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void placeParts();

    Ztk::Widget::ZIconButton *m_clearButton;
};

} // namespace controlcenter
