#pragma once

#include "sandbox/controlcenter/looks/contactsheet.h"

#include <QWidget>

class QLabel;
class QScrollArea;

namespace controlcenter {

/** Shows a page's contact sheet and what is marked on it. Escape closes it. */
class SheetWindow : public QWidget
{
    Q_OBJECT

public:
    /** Stands before @p window. */
    explicit SheetWindow(QWidget *window);

    /** Has the sheet of @p place drawn, and shows it when it is. */
    void draw(const QString &place, const QString &title);

    /** Whether it is shown, with all that is marked. */
    bool isDrawn() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showProgress();

    ContactSheet m_sheet;
    QString m_place;
    QLabel *m_state;
    QLabel *m_picture;
    QScrollArea *m_area;
};

} // namespace controlcenter
