#include "wordcount.h"

#include "frame/core/datafiles.h"

namespace sd {

int CountWords(const QString &box)
{
    QString text = trimBlanks(box);
    int count = text.isEmpty() ? 0 : 1;
    // Trailing line feeds first, then trailing carriage returns: of two CR LF pairs at the end,
    // only the last goes.
    while (text.endsWith(u'\n'))
        text.chop(1);
    while (text.endsWith(u'\r'))
        text.chop(1);
    const QStringView t(text);
    for (qsizetype i = 0; i < t.size(); ++i) {
        const QStringView here = t.mid(i);
        const auto at = [&here](QStringView s) { return here.startsWith(s); };
        // Every rule that matches at this position counts.
        if (t[i] == u' ')
            ++count;
        if (at(u"  "))
            --count;
        if (at(u".\n") || at(u".\r"))
            ++count;
        if (at(u"n't") || at(u"'ll") || at(u"'ve") || at(u"'re"))
            ++count;
        if (at(u"'m") || at(u"'d"))
            ++count;
        if (at(u" he's") || at(u" she's") || at(u" it's"))
            ++count;
    }
    return count;
}

QString liveCountText(int words)
{
    return QStringLiteral("Words: %1 (120-180 words)").arg(words);
}

} // namespace sd
