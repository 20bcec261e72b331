#include "sandbox/services/aiservice/phrasemodel.h"

#include <QMap>
#include <QVector>

#include <cmath>

namespace sandbox {

namespace {

/** Share of the unigram mass that the fillers take: the higher, the less is taken for the phrase.
 *  Found by trial: 0.9999 leaves other sentences empty, 0.99 begins to let fragments through. */
constexpr double fillerMass = 0.9999;
/** Probability that a word of the phrase is followed by the next one. */
constexpr double nextWord = 0.5;
/** Probability that an utterance begins with the first word of the phrase. */
constexpr double firstWord = 0.6;
/** Unigram mass of the end of an utterance, and the share that the other words keep beside it. */
constexpr double sentenceEnd = 0.1;
constexpr double otherThanEnd = 1.0 - sentenceEnd;

const QString fillerMark = QStringLiteral("~");

/** One word, and for every stretch of sound in it the phones it may be heard as, "|" between them.
 *  An empty alternative means that the stretch may be swallowed. */
struct Word
{
    const char *text;
    QVector<const char *> sounds;
};

const QVector<Word> &phrase()
{
    static const QVector<Word> table = {
        {"阿岚", {"AA|AH|AO", "L|D|N", "AA N|AE N|AA NG|AH N"}},
        {"帮我", {"B|P|G|K|M", "AA NG|AO NG|AA N", "W AO|W AA|W OW|OW"}},
        {"预约", {"Y UW|Y IY|IY|UW", "Y EH|Y UW EH|UW EH|Y UH|Y ER"}},
        {"明天", {"M|N|B", "IY NG|IH NG|IY N|IH N", "T|TH|D|K|CH", "Y EH N|IY EH N|Y AE N|IH N"}},
        {"早上", {"T S|D Z|Z|S|TH|CH|JH", "AW|AA UH|AA OW|AO", "SH|Z|S|F", "AA NG|AH NG|AA N"}},
        {"10点", {"SH|S|Z|CH", "ER|UH|IH|UW|IY", "T|D|K", "Y EH N|IY EH N|Y AE N|IY N"}},
        {"的", {"T|D|DH", "AH|ER|OW|UH"}},
        {"视频", {"SH|S|Z|CH", "ER|UH|IH|UW|OW", "P|T|TH|D|K|B|F", "IY N|IH N|IY NG|IH NG"}},
        {"会议", {"HH W|W|K W|G W|F W|HH UW", "EY|OY|EH", "Y IY|IY|NG Y IY|"}},
    };
    return table;
}

QStringList phones()
{
    return QStringLiteral(
               "AA AE AH AO AW AY B CH D DH EH ER EY F G HH IH IY JH K L M N NG OW OY P R "
               "S SH T TH UH UW V W Y Z ZH")
        .split(QLatin1Char(' '));
}

/** Every way to say a word: one alternative of each stretch, in order. */
QStringList pronunciations(const Word &word)
{
    QStringList ways = {QString()};
    for (const char *sound : word.sounds) {
        QStringList longer;
        for (const QString &way : ways)
            for (const QString &alternative : QString::fromLatin1(sound).split(QLatin1Char('|')))
                longer << (way + QLatin1Char(' ') + alternative).trimmed();
        ways = longer;
    }
    ways.removeDuplicates();
    return ways;
}

QByteArray line(double probability, const QString &words)
{
    return QByteArray::number(std::log10(probability), 'f', 4) + ' ' + words.toUtf8();
}

} // namespace

QStringList phrasemodel::words()
{
    QStringList result;
    for (const Word &word : phrase())
        result << QString::fromUtf8(word.text);
    return result;
}

bool phrasemodel::isFiller(const QString &word)
{
    return word.startsWith(fillerMark) || word.startsWith(QLatin1Char('<'));
}

QByteArray phrasemodel::dictionary()
{
    QByteArray result;
    for (const Word &word : phrase()) {
        int number = 0;
        for (const QString &way : pronunciations(word)) {
            result += word.text;
            if (++number > 1)
                result += '(' + QByteArray::number(number) + ')';
            result += ' ' + way.toLatin1() + '\n';
        }
    }
    for (const QString &phone : phones())
        result += (fillerMark + phone + QLatin1Char(' ') + phone + QLatin1Char('\n')).toLatin1();
    return result;
}

QByteArray phrasemodel::bigrams()
{
    const QString begin = QStringLiteral("<s>");
    const QString end = QStringLiteral("</s>");
    const QStringList chain = words();

    QMap<QString, double> unigrams;
    for (const QString &word : chain)
        unigrams[word] = (1.0 - fillerMass) * otherThanEnd / chain.size();
    const QStringList fillers = phones();
    for (const QString &phone : fillers)
        unigrams[fillerMark + phone] = fillerMass * otherThanEnd / fillers.size();
    unigrams[end] = sentenceEnd;

    // One successor per word, so the back-off weight spreads what is left over all others.
    QMap<QString, QPair<QString, double>> successors;
    successors[begin] = {chain.first(), firstWord};
    for (int i = 0; i < chain.size(); ++i)
        successors[chain[i]] = {chain.value(i + 1, end), nextWord};
    const auto backOff = [&](const QString &word) {
        const auto successor = successors.value(word, {QString(), 0.0});
        return (1.0 - successor.second) / (1.0 - unigrams.value(successor.first, 0.0));
    };

    QByteArray result = "\\data\\\nngram 1=" + QByteArray::number(unigrams.size() + 1) +
                        "\nngram 2=" + QByteArray::number(successors.size()) + "\n\n\\1-grams:\n";
    const auto backOffText = [&](const QString &word) {
        return ' ' + QByteArray::number(std::log10(backOff(word)), 'f', 4) + '\n';
    };
    result += "-99.0000 " + begin.toUtf8() + backOffText(begin);
    for (auto it = unigrams.cbegin(); it != unigrams.cend(); ++it)
        result += line(it.value(), it.key()) + backOffText(it.key());
    result += "\n\\2-grams:\n";
    for (auto it = successors.cbegin(); it != successors.cend(); ++it)
        result += line(it->second, it.key() + QLatin1Char(' ') + it->first) + '\n';
    return result + "\n\\end\\\n";
}

QStringList phrasefilter::phraseWords(const QStringList &decoded)
{
    static const QStringList phrase = phrasemodel::words();

    QStringList result;
    QStringList run;
    int last = -1;
    const auto closeRun = [&] {
        if (run.size() >= shortestRun)
            result << run;
        run.clear();
    };
    for (const QString &word : decoded) {
        const int place = phrase.indexOf(word);
        if (place < 0 || place == last)
            continue; // another sound, or a long drawn word heard twice
        if (place < last)
            closeRun();
        run << word;
        last = place;
    }
    closeRun();
    return result;
}

} // namespace sandbox
