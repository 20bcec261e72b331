#include "pages/showntext.h"

#include <QTextBoundaryFinder>

QString showntext::cut(const QString &text, int limit)
{
    if (text.size() <= limit)
        return text;
    // Two units beyond the cut tell whether it splits a character; the rest need not be looked at.
    const QString beginning = text.left(limit + 1);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, beginning);
    characters.setPosition(limit - 1);
    if (!characters.isAtBoundary())
        characters.toPreviousBoundary();
    return beginning.left(characters.position()) + QChar(0x2026);
}
