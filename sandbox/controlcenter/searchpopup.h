#pragma once

#include "sandbox/controlcenter/moduleregistry.h"

#include <QFrame>

class QLabel;
class QListView;
class QStandardItemModel;

namespace controlcenter {

/**
 * The card of search results that floats over the window. A child of the window, not a window of
 * its own, so that the search field keeps the keyboard.
 */
class SearchPopup : public QFrame
{
    Q_OBJECT

public:
    explicit SearchPopup(QWidget *window);

    /**
     * Shows @p entries with the first one selected, or a sentence that there are none. What matches
     * @p query is marked.
     */
    void showResults(const QVector<SearchEntry> &entries, const QString &query);

    /** Selects the row @p rows further down; stops at both ends. */
    void moveSelection(int rows);

    /** Opens the selected entry; does nothing when there are no results. */
    void acceptSelection();

    /** What a screen reader says about the present selection. */
    QString description() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void chosen(const SearchEntry &entry);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVector<SearchEntry> m_entries;
    QStandardItemModel *m_model;
    QListView *m_list;
    QLabel *m_empty;
};

} // namespace controlcenter
