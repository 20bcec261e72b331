#include "sandbox/services/control/textvalue.h"

#include <QHash>

namespace sandbox {

namespace {

QVariant converted(const QString &text, int type)
{
    if (type == QMetaType::Bool) {
        return text == QLatin1String("true")    ? QVariant(true)
               : text == QLatin1String("false") ? QVariant(false)
                                                : QVariant();
    }
    QVariant value(text);
    return value.convert(type) ? value : QVariant();
}

} // namespace

QVariant valueLike(const QVariant &like, const QStringList &words)
{
    if (like.userType() == QMetaType::QStringList)
        return words;
    return words.size() == 1 ? converted(words.constFirst(), like.userType()) : QVariant();
}

QVariant typedValue(const QString &word)
{
    static const QHash<QString, int> types{{QStringLiteral("bool"), QMetaType::Bool},
                                           {QStringLiteral("int"), QMetaType::Int},
                                           {QStringLiteral("uint"), QMetaType::UInt},
                                           {QStringLiteral("double"), QMetaType::Double},
                                           {QStringLiteral("string"), QMetaType::QString}};
    const int colon = word.indexOf(QLatin1Char(':'));
    const auto type = types.constFind(word.left(colon));
    if (colon < 0 || type == types.constEnd())
        return word;
    return converted(word.mid(colon + 1), *type);
}

QString shownText(const QVariant &value, const QString &separator)
{
    return value.userType() == QMetaType::QStringList ? value.toStringList().join(separator)
                                                      : value.toString();
}

} // namespace sandbox
