#pragma once

#include "sandbox/controlcenter/moduleregistry.h"

#include <QLineEdit>
#include <QObject>

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

class SearchPopup;

/** A part of a text, in characters. */
struct TextPart
{
    int start;
    int length;
};

/** Where words of @p query stand in @p text, in any letter case; parts may overlap. */
QVector<TextPart> matchedParts(const QString &text, const QString &query);

/**
 * The entries of @p entries that contain every word of @p text, in any of their names and in any
 * letter case. Settings whose own name begins with the text come first, then settings that contain
 * it, then what is found only by its page or module. Empty for a blank text.
 */
QVector<SearchEntry> findEntries(const QVector<SearchEntry> &entries, const QString &text);

/**
 * Connects the search field with its results: filters while the user types, and opens what is
 * chosen.
 */
class Search : public QObject
{
    Q_OBJECT

public:
    /** Looks through @p entries. Field and popup outlive the search; the one opens below the other.
     */
    Search(const QVector<SearchEntry> &entries, SearchField *field, SearchPopup *popup,
           QObject *parent = nullptr);

Q_SIGNALS:
    void chosen(const SearchEntry &entry);

private:
    void showResults(const QString &text);
    void hideResults();
    void choose(SearchEntry entry);
    void announce();

    const QVector<SearchEntry> m_entries;
    SearchField *m_field;
    SearchPopup *m_popup;
};

} // namespace controlcenter
