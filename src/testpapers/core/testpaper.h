#pragma once

#include "frame/core/history.h"
#include "frame/core/testrecord.h"

#include <QString>

namespace sd {

struct ProgramState;

/// The three papers, numbered as PaperIndex numbers them.
enum Paper { ReadingPaper = 1, WritingPaper = 2, UseOfEnglishPaper = 3 };

/// Target time of a paper in minutes: Reading and Use of English 75, Writing 90.
int PaperTargetMinutes(int paper);
/// The exercise kind behind section 1..5 of a paper; 0 where the paper has no such section.
int SectionKind(int paper, int section);
/// The caption of a section on the section menu: the kind's name, or "Part 1" / "Part 2" for Writing.
QString SectionCaption(const ProgramState &s, int paper, int section);
/// "x" & the two-digit test number: the key of every section of test n.
QString TestKey(int test);

/// The final score of a test: the row text of each section, the total over the maximum, and the
/// percentage rounded half up (0 when nothing counts).
struct TestScore
{
    std::array<QString, 6> rows; ///< rows[1..5]; empty for a section the paper does not have
    int total = 0;
    int maximum = 0;
    int percent = 0;
    bool allDone = true;
};

/// Reading: sections 1 to 3 count double, each over its own number of questions. Use of English:
/// sections 1, 2 and 4 are out of 15 and 3 and 5 out of 10 whatever their gaps; the maximum starts
/// at 65 and loses a section's share when it was not done. A section not done adds nothing.
TestScore ScoreTest(int paper, const std::array<SectionResult, 6> &sections);
/// The fixed maximum of a Use of English section: 15 for 1, 2 and 4; 10 for 3 and 5.
int UseOfEnglishSectionMaximum(int section);
/// Scores the test in hand into ScorePercent and VerdictIndex (rule C) and returns the score.
TestScore ComputeTestScore(ProgramState &s);

/// A test is chosen: the test number, LevelCode "01".."10", and one clock for the whole test.
void StartTest(ProgramState &s, int test);
/// Wipes the test in hand: answers, scores, done marks, the composition state and the clock.
void ClearTest(ProgramState &s);

/// The record of the test in hand, as "See final score" leaves it.
TestRecord FinishedTestRecord(const ProgramState &s, const TestScore &score);
/// The sections done of a finished test as the history keeps them: one attempt each, in mode test,
/// over the section's questions (Reading) or its fixed maximum (Use of English).
QList<AttemptRecord> SectionAttempts(const TestRecord &test);

} // namespace sd
