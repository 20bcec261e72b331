#pragma once

#include <QWidget>

/**
 * One key of a shortcut, drawn as a key cap by the style's push button.
 *
 * Colours are taken from the application's palette at each painting, so a cap follows the theme.
 * The text is fixed when the cap is built. To assistive technologies a cap is named by what it
 * shows.
 */
class KeyLabel : public QWidget
{
    Q_OBJECT

public:
    /**
     * @p text is a key name as the keybinding daemon spells it; what is shown is its entry in
     * keyDisplayNames, else the name itself, else for an empty name the word for "none".
     */
    explicit KeyLabel(const QString &text, QWidget *parent = nullptr);

    /** What the cap shows. */
    QString text() const;

    /** Tells the cap whether the mouse is over its row of caps. */
    void setEnter(bool enter);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fitWidthToText();

    bool m_enter = false; // repaints only: the look under the mouse is the style's own affair
    QString m_text;
};
