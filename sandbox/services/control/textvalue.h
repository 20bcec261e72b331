#pragma once

#include <QStringList>
#include <QVariant>

namespace sandbox {

/**
 * The value that @p words mean to somebody who wants a value of the type of @p like: "true" and
 * "false", a number, one word, or any number of words for a list. Invalid when they mean none.
 */
QVariant valueLike(const QVariant &like, const QStringList &words);

/**
 * The value of a word "TYPE:VALUE", where TYPE is bool, int, uint, double or string; without a TYPE
 * it is a string. Invalid when VALUE is none of that type.
 */
QVariant typedValue(const QString &word);

/** A value as people read it; @p separator stands between the words of a list. */
QString shownText(const QVariant &value, const QString &separator = QStringLiteral(", "));

} // namespace sandbox
