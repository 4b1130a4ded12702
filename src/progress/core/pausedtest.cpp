#include "pausedtest.h"

#include "frame/core/state.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace sd {

namespace {
constexpr int Sections = 5, Kinds = 10, Answers = 20;

QJsonArray boolList(const Array<bool, 0, 5> &a)
{
    QJsonArray out;
    for (int n = 1; n <= Sections; ++n)
        out.append(a[n]);
    return out;
}

QJsonArray intList(const Array<Int16, 0, 5> &a)
{
    QJsonArray out;
    for (int n = 1; n <= Sections; ++n)
        out.append(int(a[n]));
    return out;
}

const char *const compositionFields[] = {"compositionHeading", "compositionText", "letterHeading", "letterText",
                                         "studentName", "compositionNumber"};

template<typename State>
auto compositionState(State &s)
{
    return std::array{&s.CompositionHeading, &s.CompositionText, &s.LetterHeading, &s.LetterText, &s.StudentName,
                      &s.CompositionNumber};
}
} // namespace

QByteArray TestStateJson(const ProgramState &s)
{
    QJsonObject o;
    o.insert(u"paper", int(s.PaperIndex));
    o.insert(u"test", int(s.TestNumber));
    o.insert(u"minutes", int(s.ElapsedMinutes));
    o.insert(u"done", boolList(s.SectionDone));
    o.insert(u"visited", boolList(s.SectionVisited));
    o.insert(u"scores", intList(s.SectionScore));
    o.insert(u"questions", intList(s.SectionQuestions));
    QJsonObject answers;
    for (int kind = 1; kind <= Kinds; ++kind) {
        QJsonArray list;
        bool any = false;
        for (int i = 1; i <= Answers; ++i) {
            list.append(s.SavedAnswer[kind][i]);
            any = any || !s.SavedAnswer[kind][i].isEmpty();
        }
        if (any)
            answers.insert(QString::number(kind), list);
    }
    o.insert(u"answers", answers);
    const auto texts = compositionState(s);
    for (std::size_t i = 0; i < texts.size(); ++i)
        o.insert(QLatin1String(compositionFields[i]), *texts[i]);
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

bool RestoreTestState(ProgramState &s, const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    const QJsonObject o = doc.object();
    const QJsonArray done = o.value(u"done").toArray(), visited = o.value(u"visited").toArray(),
                     scores = o.value(u"scores").toArray(), questions = o.value(u"questions").toArray();
    if (error.error != QJsonParseError::NoError || !o.value(u"minutes").isDouble() || done.size() != Sections
        || visited.size() != Sections || scores.size() != Sections || questions.size() != Sections)
        return false;
    const int minutes = o.value(u"minutes").toInt();
    if (minutes < 0 || minutes > 32767)
        return false;
    for (int n = 1; n <= Sections; ++n) {
        s.SectionDone[n] = done.at(n - 1).toBool();
        s.SectionVisited[n] = visited.at(n - 1).toBool();
        s.SectionScore[n] = std::clamp(scores.at(n - 1).toInt(), 0, 32767);
        s.SectionQuestions[n] = std::clamp(questions.at(n - 1).toInt(), 0, 32767);
    }
    const QJsonObject answers = o.value(u"answers").toObject();
    for (int kind = 1; kind <= Kinds; ++kind) {
        const QJsonArray list = answers.value(QString::number(kind)).toArray();
        for (int i = 1; i <= Answers; ++i)
            s.SavedAnswer[kind][i] = list.at(i - 1).toString();
    }
    const auto texts = compositionState(s);
    for (std::size_t i = 0; i < texts.size(); ++i)
        *texts[i] = o.value(QLatin1String(compositionFields[i])).toString();
    s.ElapsedMinutes = minutes;
    s.RemainingMinutes = s.TargetMinutes - s.ElapsedMinutes;
    return true;
}

bool TestInHand(const ProgramState &s)
{
    return s.TestMode && s.TestNumber > 0 && !s.TestScored;
}

void KeepTestInHand(ProgramState &s)
{
    if (!TestInHand(s))
        return;
    s.History->keepPausedTest(
        {s.PaperIndex, s.TestNumber, TestStateJson(s), int(s.ElapsedMinutes) * 60, s.Time.now().toUTC()});
}

QString ContinueQuestion(const PausedTest &paused)
{
    const int minutes = paused.seconds / 60;
    return QStringLiteral("Continue Test %1 (%2 %3 used)?")
        .arg(paused.test)
        .arg(minutes)
        .arg(minutes == 1 ? QStringLiteral("minute") : QStringLiteral("minutes"));
}

} // namespace sd
