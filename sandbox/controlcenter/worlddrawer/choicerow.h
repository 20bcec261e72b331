#pragma once

#include <zcc/widgets/settingsitem.h>

class QBoxLayout;
class QLabel;

namespace controlcenter {

/** A row of the drawer: a title, a list to choose from, and below what the choice leads to. */
class ChoiceRow : public zcc::widgets::SettingsItem
{
    Q_OBJECT

public:
    explicit ChoiceRow(const QString &title, QWidget *parent = nullptr);

    void addChoice(const QString &text);

    /** Keys open the list: what is chosen costs so much that no other is tried on the way. */
    void setChosenFromList();

    /** Shows that choice as the one in force; -1 shows none. */
    void setChoice(int index);

    /** Says what it leads to; nothing when empty. */
    void setSentences(const QStringList &sentences);

    /** Gives the list the focus. */
    void focusChoice();

    /** Whether anything can be chosen now. */
    void setUsable(bool usable);

    /** In less width the list stands below the title. */
    int besideWidth() const;

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /** The user has chosen it, also once more. */
    void chosen(int index);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class Box;

    void updateColors();

    QBoxLayout *m_head;
    QLabel *m_title;
    Box *m_box;
    QLabel *m_sentences;
    QWidget *m_below;
};

} // namespace controlcenter
