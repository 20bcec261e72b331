#pragma once

#include <QStringList>

/** The parts of documents in Markdown. */
namespace markdown {

inline QString code(const QString &text)
{
    // A bar ends a cell also within code.
    return QStringLiteral("`%1`").arg(
        QString(text).replace(QLatin1Char('|'), QLatin1String("\\|")));
}

inline QString row(const QStringList &cells)
{
    return QStringLiteral("| %1 |\n").arg(cells.join(QStringLiteral(" | ")));
}

/** The first two lines of a table. */
inline QString head(const QStringList &cells)
{
    return row(cells) + QLatin1Char('|') + QStringLiteral("---|").repeated(cells.size()) +
           QLatin1Char('\n');
}

} // namespace markdown
