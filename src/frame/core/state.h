#pragma once

#include "checked.h"
#include "datafiles.h"
#include "history.h"
#include "minuteclock.h"
#include "printerdevice.h"
#include "programtime.h"
#include "random.h"
#include "testrecord.h"

#include <QColor>
#include <QString>

#include <memory>

namespace sd {

class SoundOutput;

/// The one shared program state. Created at start-up, handed by reference to every screen,
/// never reset afterwards. Field names follow the program's own vocabulary.
struct ProgramState
{
    ProgramState(SoundOutput &sound, SeedSource &seeds);
    ProgramState(const ProgramState &) = delete;
    ProgramState &operator=(const ProgramState &) = delete;

    // Services: the sound output and the random generator (re-seeded from the clock before every draw).
    SoundOutput &Sound;
    Randomizer Random;

    // Directories and the current data file. StartDir is where the program found its data at start-up.
    QString StartDir;
    QString DataDir;
    QString GeneralDir, ReadingDir, WritingDir, UseOfEnglishDir;
    QString DataFileName;
    Int16 RecordLength;
    Int16 RecordCount, SearchRecordCount, ConversionRecordCount, WordFormationRecordCount;
    Int16 CurrentRecord;
    QString LevelCode, ExerciseCode, ExerciseKey;
    bool PracticeMode = false;
    bool TestMode = false;
    DataFiles Files;

    // Menus and screens.
    QString HelpTopic = QStringLiteral("helpgen");
    Int16 HelpCaller;
    Int16 ActivityIndex;
    Int16 PaperIndex;
    Int16 ExerciseKind;
    Int16 HoverIndex;
    QString ErrorText;
    QString MessageText; ///< the text of the next message box
    Array<QString, 0, 2> ActivityHeadings;
    Array<QString, 0, 3> PaperHeadings;
    Array<QString, 0, 10> KindNames;
    Array<QString, 0, 7> CompositionTypeNames;
    QString Separator;
    Array<QColor, 1, 6> Colours;
    bool ShowWebPages = false; ///< Passages as web pages instead of rich text.
    // The student's settings beyond the clock (kept between runs, see StudentSettings).
    bool SoundOn = true;
    int Volume = 80;   ///< 0 to 100
    int TextStep = 0;  ///< reading text size in tenths above or below normal

    // Clock, verdicts and sounds.
    Int16 TargetMinutes, ElapsedMinutes, RemainingMinutes;
    bool ClockShown = true;
    MinuteClock Clock;
    Int16 QuestionCount, Score, ScorePercent, VerdictIndex;
    Array<QString, 0, 7> VerdictTexts;
    Array<QString, 0, 10> SoundFiles;
    QString CurrentSound;
    bool AllCorrect = false;

    // Random record picker.
    Array<bool, 0, 20> UsedRecords;
    Array<Int16, 0, 20> PickOrder;
    Int16 PickCount, LastPickIndex;

    // Reading answers, keys and results.
    Array<QString, 0, 20> ReadingAnswers, ReadingKeys;
    Array<bool, 0, 20> ReadingResult;
    struct ReadingResultStore
    {
        Array<bool, 0, 8> Headings, MultipleChoice, Reconstruction;
        Array<bool, 0, 13> Matching;
        bool &at(int kind, int i);
    } ReadingResults;
    bool SeeCorrectAnswers = false;
    bool ExtraSection = false;
    Int16 LastExerciseScore;

    // Gap exercises (Use of English), gaps 1..15 in lists sized for 20.
    Int16 GapCount;
    Array<QString, 0, 20> GapKey, GapAnswer, GapAnswerShown;
    Array<Array<QString, 1, 4>, 0, 20> GapAlternatives; ///< shown order of each gap's alternatives
    Array<Array<QString, 1, 4>, 0, 20> GapAccepted;     ///< accepted answers (open cloze)
    Array<bool, 0, 20> GapCorrect, GapWrong, GapEverCorrect;
    QString WrongAnswerList;

    // Test papers. Sections are numbered 1..5 within a paper; answers are kept per exercise kind
    // so that moving between sections never mixes their answers.
    Int16 TestNumber, SectionIndex;
    Array<bool, 0, 5> SectionDone, SectionVisited;
    Array<Int16, 0, 5> SectionScore, SectionQuestions;
    bool TestScored = false;
    bool ShowSectionAnswers = false;
    Array<Array<QString, 0, 20>, 0, 10> SavedAnswer;

    // Writing: the composition type chosen (CompositionIndex 22..28 selects its help topic, 41..47
    // in the samples), the screen mode and the samples flag.
    QString CompositionType, CompositionListName, ScreenMode;
    Int16 CompositionTypeNumber, CompositionIndex;
    bool SamplesFlag = false;
    // The title store: titles of the type in record order, and the one in hand (1..10).
    Array<QString, 0, 10> Titles, TitleNotes;
    Int16 CurrentTitle;
    // Transactional letter: topic "01".."10", its sheet "leta01" and the sheet's three files.
    QString CurrentTopicCode, CurrentSheet, SheetPage, SheetPrint, SheetDocument;
    // Composition state: kept here so that a test keeps the writing when an editor is left and
    // opened again, and so that print and save use it.
    QString CompositionHeading, CompositionText, LetterHeading, LetterText, StudentName;
    QString CompositionNumber, PaperLabel;
    bool CompositionSaved = true;
    // The Writing test paper sets these before it opens an editor: the Part 1 sheet ("compx01",
    // shown beside the letter, its task in praccomp.dat under "x01") and the Part 2 question file
    // ("compx01b.rtf").
    QString TestLetterSheet, TestQuestionFile;
    // Sample compositions: the sample shown (1..3) and the two scores (1 pass, 2 borderline, 3 fail).
    Int16 SampleNumber, StudentScore, ExaminerScore;
    bool SampleScored = false;

    // Printer: the program's printer device. A recording one until start-up sets the real one.
    std::unique_ptr<PrinterDevice> Printer = std::make_unique<RecordingPrinter>();
    // The save dialog: a queue that cancels everything until start-up sets the real one.
    std::unique_ptr<SaveDialog> SaveAs = std::make_unique<QueuedSaveDialog>();
    // The calendar and short delays (draft saves): real, or fake in scripts and tests.
    ProgramTime Time;
    // The student's history: keeps nothing until start-up (or a test) sets the real one.
    std::unique_ptr<StudentHistory> History = std::make_unique<NoHistory>();

    /// Section number of a kind within its paper.
    static int sectionOfKind(int kind);
    void fillNameTables();
    void setDataDir(const QString &dir);
};

/// Practice target times set on loading a practice screen (minutes).
inline constexpr int ReadingPracticeMinutes = 18;
inline constexpr int UseOfEnglishPracticeMinutes = 15;
inline constexpr int WritingPracticeMinutes = 45;

} // namespace sd
