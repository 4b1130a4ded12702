#include "conversion.h"

namespace sd {

namespace {
void replaceRepeatedly(QString &text, const QString &from, const QString &to)
{
    for (qsizetype at = text.indexOf(from); at >= 0; at = text.indexOf(from))
        text.replace(at, from.size(), to);
}
} // namespace

QString ExpandContractions(QString text)
{
    static const QString nt = QStringLiteral("n't");
    static const std::array<std::pair<QString, QString>, 3> whole{{
        {QStringLiteral("can't"), QStringLiteral("cannot")},
        {QStringLiteral("won't"), QStringLiteral("will not")},
        {QStringLiteral("shan't"), QStringLiteral("shall not")},
    }};
    while (text.contains(nt)) {
        bool done = false;
        for (const auto &[from, to] : whole) {
            const qsizetype at = text.indexOf(from);
            if (at >= 0) {
                text.replace(at, from.size(), to);
                done = true;
                break;
            }
        }
        if (!done)
            text.replace(text.indexOf(nt), nt.size(), QStringLiteral(" not"));
    }
    return text;
}

QString NormaliseAnswer(const QString &text)
{
    QString out = ExpandContractions(text.trimmed().toLower());
    out = RemoveCommas(out);
    out.remove(u'!');
    replaceRepeatedly(out, QStringLiteral(" ."), QStringLiteral("."));
    replaceRepeatedly(out, QStringLiteral(" ?"), QStringLiteral("?"));
    return CollapseSpaces(out);
}

QString RemoveCarriageReturns(QString text)
{
    text.remove(u'\r');
    return text;
}

bool JudgeItemAnswer(const QString &answer, const QString &correct, const Alternatives &alternatives)
{
    const QString a = NormaliseAnswer(answer);
    if (a.isEmpty())
        return false;
    if (a.toUpper() == NormaliseAnswer(correct).toUpper())
        return true;
    for (const QString &alt : alternatives)
        if (a == NormaliseAnswer(alt))
            return true;
    return false;
}

} // namespace sd
