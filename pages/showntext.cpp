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

// An isolate's end also ends what began in it.
static void closeIsolate(QString *ends)
{
    const int innermost = ends->lastIndexOf(QChar(0x2069));
    if (innermost >= 0)
        ends->truncate(innermost);
}

QString showntext::partOfLine(const QString &text)
{
    static const QString lineBreaks = QStringLiteral("\n\v\f\r\u0085\u2028\u2029");
    const QChar endOfEmbedding(0x202c);
    const QChar endOfIsolate(0x2069);
    QString line = text;
    QString ends; // of what is open, the innermost last
    for (QChar &c : line) {
        const ushort unit = c.unicode();
        if (lineBreaks.contains(c))
            c = QLatin1Char(' ');
        else if (c == endOfIsolate)
            closeIsolate(&ends);
        else if (c == endOfEmbedding && ends.endsWith(endOfEmbedding))
            ends.chop(1);
        else if (unit >= 0x2066 && unit <= 0x2068)
            ends += endOfIsolate;
        else if (unit >= 0x202a && unit <= 0x202e && c != endOfEmbedding)
            ends += endOfEmbedding;
    }
    while (!ends.isEmpty()) {
        line += ends.back();
        ends.chop(1);
    }
    return line;
}
