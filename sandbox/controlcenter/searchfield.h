#pragma once

#include <QLineEdit>

namespace controlcenter {

/**
 * Where the user types what to look for. Up and Down move through the results, Enter opens one,
 * Escape clears.
 */
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent = nullptr);

    /** Wide enough for all of the placeholder. */
    QSize sizeHint() const override;

Q_SIGNALS:
    /** The user moves @p rows down (negative: up) in the results. */
    void moved(int rows);
    void accepted();
    void focusLost();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
