#pragma once

#include <QScrollArea>

namespace controlcenter {

/** Where a page of the window stands and scrolls: at the leading side, as wide as is easy to read.
 */
class PageArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);

    /** Shows @p page from its top and owns it; deletes the one before unless that was taken. */
    void setPage(QWidget *page);

    /** In less its page has to be scrolled sideways; 0 without a page. */
    int leastWidth() const;
};

} // namespace controlcenter
