#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace sd {

/// Scores of the sample compositions: 1 pass, 2 borderline, 3 fail.
enum SampleScore { ScorePass = 1, ScoreBorderline = 2, ScoreFail = 3 };

/// The example subject of types 2..7, a text of the program; empty for type 1, whose subject is
/// the file "letasample.rtf".
QString exampleSubject(int typeNumber);
/// "Samplenar2.rtf"
QString sampleFileName(const QString &typeCode, int sample);
/// 10 x type number + sample number: 11..73.
int commentKey(int typeNumber, int sample);
/// The sound index for the student's score against the examiner's: 2 when they agree, 6 one step
/// apart, 7 pass against fail.
int sampleSoundIndex(int studentScore, int examinerScore);

struct ExaminerComment
{
    int verdict = 0; ///< SampleScore
    QString text;
};

/// Parses "@comment 11 F" blocks, each followed by its paragraph. Problems name the line.
QMap<int, ExaminerComment> parseComments(const QString &text, QStringList *problems = nullptr);
/// The examiner's comments of the program, keyed 11..73; parsed once.
const QMap<int, ExaminerComment> &examinerComments();

} // namespace sd
