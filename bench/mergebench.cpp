#include "bench/suite.h"
#include "pages/showntext.h"
#include "pages/wordslabel.h"
#include "voice/iatwapper.h"

#include <QImage>
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

// Work for ten results at the end of a session that already had some.
double tenResultsAfter(int earlier)
{
    const QString replace = result("rpl", QStringLiteral("明天"));
    const QString append = result("apd", QStringLiteral("早上"));
    IatWapper recogniser;
    const auto feed = [&](int count) {
        for (int i = 0; i < count; ++i)
            recogniser.handleResult(i % 2 ? append : replace);
    };
    feed(earlier);
    return workMs([&] { feed(10); });
}

// Work until words are on the screen.
double showing(const QString &words)
{
    WordsLabel label;
    label.resize(340, 42);
    QImage image(label.size(), QImage::Format_ARGB32_Premultiplied);
    return workMs([&] {
        label.setText(showntext::cut(words, showntext::longestWords));
        label.render(&image);
    });
}

} // namespace

void benchMerge(const Report &report)
{
    Comparison merging;
    merging.name = QStringLiteral("merging");
    merging.subject = QStringLiteral("ten results after 10,000 others");
    merging.baseline = QStringLiteral("ten results after none");
    merging.unit = QStringLiteral("ms");
    merging.aim = 1.3;
    merging.rounds = 20;
    merging.measureSubject = [] {
        return tenResultsAfter(10000);
    };
    merging.measureBaseline = [] {
        return tenResultsAfter(0);
    };
    report(compare(merging));

    Comparison words;
    words.name = QStringLiteral("words");
    words.subject = QStringLiteral("showing a million letters");
    words.baseline = QStringLiteral("showing as many as are shown of them");
    words.unit = QStringLiteral("ms");
    words.aim = 1.3;
    words.rounds = 20;
    const QString text = QStringLiteral("what ").repeated(200000);
    words.measureSubject = [text] {
        return showing(text);
    };
    words.measureBaseline = [text] {
        return showing(text.left(showntext::longestWords));
    };
    report(compare(words));
}
