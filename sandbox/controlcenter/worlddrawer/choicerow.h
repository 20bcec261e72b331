#pragma once

#include <zcc/widgets/settingsitem.h>

class QComboBox;
class QLabel;

namespace controlcenter {

/** A row of the drawer: a title, a list to choose from, and below what the choice leads to. */
class ChoiceRow : public zcc::widgets::SettingsItem
{
    Q_OBJECT

public:
    explicit ChoiceRow(const QString &title, QWidget *parent = nullptr);

    void addChoice(const QString &text);

    /** Shows that choice as the one in force; -1 shows none. */
    void setChoice(int index);

    /** Says what it leads to; nothing when empty. */
    void setSentences(const QStringList &sentences);

    /** Whether anything can be chosen now. */
    void setUsable(bool usable);

Q_SIGNALS:
    /** The user has chosen it, also once more. */
    void chosen(int index);

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColors();
    void alignTexts();

    QLabel *m_title;
    QComboBox *m_box;
    QLabel *m_sentences;
    QWidget *m_below;
};

} // namespace controlcenter
