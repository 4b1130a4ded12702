#include "samples.h"

#include <QFile>
#include <QRegularExpression>

// Resources compiled into a static library are registered on first use.
static void registerWritingText()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(writingtext);
        return true;
    }();
    Q_UNUSED(done);
}

namespace sd {

QString exampleSubject(int typeNumber)
{
    static const char *const subjects[] = {
        "A student magazine is holding a short story competition. The rules state that the story must contain the "
        "words: 'I could hear someone calling for help.' Write your story. (Your answer should be between 120 and 180 "
        "words.)",
        "Write an article explaining how the area you live in has changed in recent years and how you feel about the "
        "changes. (Your answer should be between 120 and 180 words.)",
        "Some students from another country are going to visit your area and are interested in music. Write a report "
        "on the different types of music they can hear there. (Your answer should be between 120 and 180 words.)",
        "In your opinion which is the best way to travel when you are on holiday: by train, by car or by air? (Your "
        "answer should be between 120 and 180 words.)",
        "Recently you bought a television set but it did not work correctly. You contacted the shop from which you "
        "bought it and a technician came to repair it. However, you are still not satisfied. Write a letter of "
        "complaint to the manager of the shop. (Your answer should be between 120 and 180 words.)",
        "Who is the most interesting character in the book you have read? Give a brief description of the part he/she "
        "plays and say why you find him/her interesting. (Your answer should be between 120 and 180 words.)",
    };
    return typeNumber >= 2 && typeNumber <= 7 ? QString::fromLatin1(subjects[typeNumber - 2]) : QString();
}

QString sampleFileName(const QString &typeCode, int sample)
{
    return QStringLiteral("Sample") + typeCode + QString::number(sample) + QStringLiteral(".rtf");
}

int commentKey(int typeNumber, int sample)
{
    return 10 * typeNumber + sample;
}

int sampleSoundIndex(int studentScore, int examinerScore)
{
    const int apart = qAbs(studentScore - examinerScore);
    return apart == 0 ? 2 : apart == 1 ? 6 : 7;
}

QMap<int, ExaminerComment> parseComments(const QString &text, QStringList *problems)
{
    static const QRegularExpression head(QStringLiteral("^@comment\\s+([1-7][1-3])\\s+([PBF])\\s*$"));
    QMap<int, ExaminerComment> out;
    const QStringList lines = QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).split(u'\n');
    int key = 0;
    QStringList body;
    const auto finish = [&] {
        if (key)
            out[key].text = body.join(u' ').simplified();
        body.clear();
    };
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.startsWith(u'@')) {
            finish();
            const QRegularExpressionMatch m = head.match(line);
            key = m.hasMatch() ? m.captured(1).toInt() : 0;
            if (!m.hasMatch() && problems)
                problems->append(QStringLiteral("line %1: expected \"@comment KEY P|B|F\"").arg(i + 1));
            else if (m.hasMatch())
                out[key].verdict = QStringLiteral("PBF").indexOf(m.captured(2)) + 1;
        } else if (key && !line.isEmpty() && !line.startsWith(u'%')) {
            body.append(line);
        }
    }
    finish();
    return out;
}

const QMap<int, ExaminerComment> &examinerComments()
{
    static const QMap<int, ExaminerComment> comments = [] {
        registerWritingText();
        QFile f(QStringLiteral(":/writing/comments.md"));
        f.open(QIODevice::ReadOnly);
        return parseComments(QString::fromUtf8(f.readAll()));
    }();
    return comments;
}

} // namespace sd
