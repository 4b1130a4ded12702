#include "state.h"

#include <QDir>

namespace sd {

ProgramState::ProgramState(SoundOutput &sound, SeedSource &seeds)
    : Sound(sound), Random(seeds), Clock(TargetMinutes, ElapsedMinutes, RemainingMinutes)
{
    fillNameTables();
}

void ProgramState::fillNameTables()
{
    ActivityHeadings[1] = QStringLiteral("PRACTICE EXERCISES");
    ActivityHeadings[2] = QStringLiteral("TEST PAPERS");
    PaperHeadings[1] = QStringLiteral("READING");
    PaperHeadings[2] = QStringLiteral("WRITING");
    PaperHeadings[3] = QStringLiteral("USE OF ENGLISH");
    const char *kinds[] = {"Headings",  "Multiple choice", "Text reconstruction", "Matching",
                           "Writing",   "MC Cloze",        "Open Cloze",          "Sentence Conversion",
                           "Error Correction", "Word Formation"};
    for (int i = 1; i <= 10; ++i)
        KindNames[i] = QString::fromLatin1(kinds[i - 1]);
    const char *types[] = {"Transactional letter", "Narrative", "Article", "Report",
                           "Discussion", "Other Letters", "Prescribed texts"};
    for (int i = 1; i <= 7; ++i)
        CompositionTypeNames[i] = QString::fromLatin1(types[i - 1]);
    const char *verdicts[] = {"Well done!", "A near miss - only one wrong", "A good pass", "OK - a pass",
                              "Borderline - keep trying", "Sorry, only some answers correct", "What happened?"};
    for (int i = 1; i <= 7; ++i)
        VerdictTexts[i] = QString::fromLatin1(verdicts[i - 1]);
    const char *sounds[] = {"fanfare1.wav", "happychime.wav", "happychime.wav", "chimes.wav", "chimes.wav",
                            "chord.wav",    "ohdear.wav",     "start.wav",      "oopshort.wav"};
    for (int i = 1; i <= 9; ++i)
        SoundFiles[i] = QString::fromLatin1(sounds[i - 1]);
    CurrentSound = QStringLiteral("start.wav");
    Separator.clear();
    for (int i = 0; i < 40; ++i)
        Separator += QStringLiteral("\u00B7 ");
    const int rgb[6][3] = {{108, 148, 200}, {138, 166, 213}, {169, 191, 222},
                           {32, 96, 191},   {64, 128, 223},  {118, 163, 231}};
    for (int i = 1; i <= 6; ++i)
        Colours[i] = QColor(rgb[i - 1][0], rgb[i - 1][1], rgb[i - 1][2]);
}

void ProgramState::setDataDir(const QString &dir)
{
    QString d = QDir::fromNativeSeparators(dir);
    if (!d.endsWith(u'/'))
        d += u'/';
    DataDir = d;
    GeneralDir = ReadingDir = WritingDir = UseOfEnglishDir = d;
}

int ProgramState::sectionOfKind(int kind)
{
    if (kind >= 1 && kind <= 4)
        return kind;
    if (kind >= 6 && kind <= 10)
        return kind - 5;
    return 0;
}

bool &ProgramState::ReadingResultStore::at(int kind, int i)
{
    switch (kind) {
    case 1: return Headings[i];
    case 2: return MultipleChoice[i];
    case 3: return Reconstruction[i];
    case 4: return Matching[i];
    default: throw RangeError(QStringLiteral("Subscript out of range: kind %1").arg(kind));
    }
}

} // namespace sd
