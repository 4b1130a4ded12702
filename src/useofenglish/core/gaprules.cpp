#include "gaprules.h"

#include "frame/core/datafiles.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

#include "ui/files/datapath.h"

#include <QFile>

namespace sd {

Alternatives SplitAlternatives(const QString &item)
{
    Alternatives out;
    if (item.isEmpty() || item.startsWith(QStringLiteral("///")))
        return out;
    QString rest = item;
    for (int i = 0; i < 3; ++i) {
        const qsizetype slash = rest.indexOf(u'/');
        if (slash < 0) {
            out[i].clear();
            rest = rest.mid(1);
        } else {
            out[i] = rest.left(slash);
            rest = rest.mid(slash + 1);
        }
    }
    out[3] = rest;
    return out;
}

namespace {
void checkDraw(int k)
{
    if (k < 1 || k > 12)
        throw RangeError(QStringLiteral("Subscript out of range: shuffle %1").arg(k));
}
} // namespace

std::array<int, 4> ShuffleFourOrder(int k)
{
    static constexpr std::array<std::array<int, 4>, 12> orders{{
        {2, 1, 4, 3}, {2, 3, 1, 4}, {2, 4, 3, 1}, {4, 1, 2, 3}, {4, 2, 1, 3}, {4, 3, 2, 1},
        {3, 1, 4, 2}, {3, 2, 1, 4}, {3, 4, 2, 1}, {1, 2, 3, 4}, {1, 3, 4, 2}, {1, 4, 3, 2},
    }};
    checkDraw(k);
    return orders[std::size_t(k - 1)];
}

std::array<int, 3> ShuffleThreeOrder(int k)
{
    static constexpr std::array<std::array<int, 3>, 12> orders{{
        {2, 1, 3}, {2, 3, 1}, {2, 1, 3}, {1, 3, 2}, {3, 2, 1}, {2, 3, 1},
        {3, 1, 2}, {3, 2, 1}, {3, 1, 2}, {1, 2, 3}, {1, 3, 2}, {1, 2, 3},
    }};
    checkDraw(k);
    return orders[std::size_t(k - 1)];
}

Alternatives ShuffleFour(int k, const Alternatives &a)
{
    const auto order = ShuffleFourOrder(k);
    Alternatives out;
    for (std::size_t i = 0; i < 4; ++i)
        out[i] = a[std::size_t(order[i] - 1)];
    return out;
}

Alternatives ShuffleThree(int k, const Alternatives &a)
{
    const auto order = ShuffleThreeOrder(k);
    Alternatives out = a;
    for (std::size_t i = 0; i < 3; ++i)
        out[i] = a[std::size_t(order[i] - 1)];
    return out;
}

int DrawShuffle(ProgramState &s)
{
    return s.Random.drawOneTo(12);
}

Alternatives ShuffleGap(ProgramState &s, const Alternatives &a)
{
    const int k = DrawShuffle(s);
    return a[3].trimmed().isEmpty() ? ShuffleThree(k, a) : ShuffleFour(k, a);
}

QString CollapseSpaces(QString text)
{
    for (qsizetype at = text.indexOf(QStringLiteral("  ")); at >= 0; at = text.indexOf(QStringLiteral("  ")))
        text.replace(at, 2, QStringLiteral(" "));
    return text;
}

QString RemoveCommas(QString text)
{
    for (qsizetype at = text.indexOf(u','); at >= 0; at = text.indexOf(u','))
        text.remove(at, 1);
    return text;
}

bool SameAnswer(const QString &answer, const QString &key)
{
    // Blanks typed before or after an answer never make it wrong.
    return answer.trimmed().toUpper() == key.trimmed().toUpper();
}

int OpenClozeMatches(const QString &answer, const Alternatives &accepted)
{
    int matches = 0;
    const QString given = answer.trimmed().toUpper();
    for (const QString &a : accepted)
        if (!given.isEmpty() && given == a.trimmed().toUpper())
            ++matches;
    return matches;
}

int GapVerdict(int score, int gapCount)
{
    // Rule A truncates T / 100 x p, which gives the same thresholds as Int(n x 0.74) etc.
    return VerdictRuleA(gapCount, score);
}

QStringList ReadNumberedLines(const QString &dataDir, const QString &name)
{
    const FileBytes f = readDataFile(dataDir, name, MaxTextBytes);
    if (!f.ok())
        throw ProgramError(QStringLiteral("File not found: %1").arg(name));
    QString text = decodeSingleByte(f.bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    if (text.endsWith(u'\n'))
        text.chop(1);
    QStringList lines;
    if (f.bytes.isEmpty())
        return lines;
    const QStringList raw = text.split(u'\n');
    for (qsizetype c = 1; c <= raw.size(); ++c) {
        if (c > 20)
            throw RangeError(QStringLiteral("Subscript out of range: line %1 of %2").arg(c).arg(name));
        const QString &line = raw.at(c - 1);
        lines.append(line.trimmed().isEmpty() ? QString() : QString::number(c) + QStringLiteral(". ") + line);
    }
    return lines;
}

} // namespace sd
