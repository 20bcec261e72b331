#pragma once

#include "sandbox/controlcenter/themechoice.h"

#include <QPushButton>

class QActionGroup;

namespace controlcenter {

/** Opens the list of the themes; the one in force is marked. */
class ThemeButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ThemeButton(QWidget *parent = nullptr);

    ThemeChoice *choice() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addChoice(ThemeChoice::Choice choice);
    void showChoice();

    ThemeChoice *m_choice;
    QActionGroup *m_actions;
};

} // namespace controlcenter
