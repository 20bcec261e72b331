#pragma once

#include <QWidget>

class QLabel;

namespace controlcenter {

/** Where the user is: the entry, and the page in it. The page's name is the heading. */
class Breadcrumb : public QWidget
{
    Q_OBJECT

public:
    explicit Breadcrumb(QWidget *parent = nullptr);

    /** @p page may be empty: then the entry is the heading. */
    void setPath(const QString &entry, const QString &page);

    /** From now on at least as wide as this path needs. */
    void reserveWidthFor(const QString &entry, const QString &page);

    QString page() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColors();

    QLabel *m_entry;
    QLabel *m_arrow;
    QLabel *m_page;
};

} // namespace controlcenter
