#include "bench/suite.h"
#include "voice/iatwapper.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString result(const char *pgs, const QString &word)
{
    const QJsonObject candidate = {{QStringLiteral("w"), word}};
    const QJsonObject slot = {{QStringLiteral("cw"), QJsonArray{candidate}}};
    const QJsonObject hypothesis = {{QStringLiteral("pgs"), QLatin1String(pgs)},
                                    {QStringLiteral("ws"), QJsonArray{slot}}};
    const QJsonObject message = {
        {QStringLiteral("session_id"), QString()},
        {QStringLiteral("text"),
         QString::fromUtf8(QJsonDocument(hypothesis).toJson(QJsonDocument::Compact))}};
    return QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

/** Milliseconds for a hundred results at the end of a session that already had @p earlier. */
double hundredResultsAfter(int earlier)
{
    const QString replace = result("rpl", QStringLiteral("明天"));
    const QString append = result("apd", QStringLiteral("早上"));
    IatWapper recogniser;
    const auto feed = [&](int count) {
        for (int i = 0; i < count; ++i)
            recogniser.handleResult(i % 2 ? append : replace);
    };
    feed(earlier);
    return timedMs([&] { feed(100); });
}

} // namespace

QVector<Ratio> benchMerge()
{
    return {compare(
        QStringLiteral("merging"), QStringLiteral("a result after 2000 others"),
        QStringLiteral("a result after none"), 20, QStringLiteral("ms for 100 results"),
        [] { return hundredResultsAfter(2000); }, [] { return hundredResultsAfter(0); })};
}
