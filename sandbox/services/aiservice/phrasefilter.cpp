#include "sandbox/services/aiservice/phrasefilter.h"

#include "sandbox/services/aiservice/phrasemodel.h"

namespace sandbox {

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
