#pragma once

#include <ztk/zlistview.h>

#include <QIcon>
#include <QWidget>

class QStandardItemModel;

namespace controlcenter {

/** The main navigation: one row per entry; the row that becomes current is opened. */
class NavigationColumn : public Ztk::Widget::ZListView
{
    Q_OBJECT

public:
    explicit NavigationColumn(QWidget *parent = nullptr);

    /**
     * Adds an entry with the internal name @p name. It stands behind the entry @p follow, or last
     * when there is none of that name.
     */
    void addEntry(const QString &name, const QString &text, const QIcon &icon,
                  const QString &follow = QString());

    /** Makes the entry current, which emits entryOpened() when it was not. */
    void setCurrentEntry(const QString &name);

    QString currentEntry() const;
    QString entryText(const QString &name) const;

    /** Wide enough for every entry on one line. */
    QSize sizeHint() const override;

Q_SIGNALS:
    void entryOpened(const QString &name);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void updateColors();
    int rowOf(const QString &name) const;

    QStandardItemModel *m_model;
};

/** The window's leading column, a shade away from the page and as wide as its contents need. */
class SideBar : public QWidget
{
public:
    /** @p search stands above @p entries; both become its own. */
    SideBar(QWidget *search, QWidget *entries, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace controlcenter
