#pragma once

#include <QLabel>
#include <QTextLayout>

/**
 * Recognised words: plain text in the middle of the label, all of it readable at any width. What is
 * wider than the label is broken, within a word only where there is no other place.
 *
 * Takes all the width that its layout has, and never asks for more.
 */
class WordsLabel : public QLabel
{
public:
    explicit WordsLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const QTextLayout &lines(int width) const;

    mutable QTextLayout m_lines; // the text as it was last broken, for m_linesWidth
    mutable int m_linesWidth = -1;
};
