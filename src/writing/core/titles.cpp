#include "titles.h"

#include "composition.h"

#include "frame/core/datafiles.h"
#include "frame/core/printerdevice.h"
#include "frame/core/printtext.h"
#include "frame/core/state.h"

namespace sd {

namespace {
constexpr int CompositionKind = 5;

/// Runs `read` over the records of praccomp.dat, closing the file however it ends.
template<typename F>
void eachRecord(ProgramState &state, F read)
{
    struct Closer
    {
        ProgramState &s;
        ~Closer() { CloseDataFile(s); }
    } closer{state};
    SelectDataFile(state, CompositionKind);
    OpenDataFile(state);
    CountRecords(state, CountFor::Search);
    for (int r = 1; r <= state.RecordCount; ++r)
        if (!read(ReadRecordAs<RecordC>(state, DataFile::Comp, r)))
            return;
}
} // namespace

void LoadTitles(ProgramState &state, TitleLoad how)
{
    state.CurrentTitle = 0;
    if (how == TitleLoad::Titles) {
        state.Titles.fill(QString());
        state.TitleNotes.fill(QString());
    }
    const QString type = trimBlanks(state.CompositionType);
    Int16 counter = 0;
    eachRecord(state, [&](const RecordC &rec) {
        if (trimBlanks(rec.Code) != type)
            return true;
        ++counter;
        const QString blank = how == TitleLoad::Letters ? QStringLiteral(" ") : QString();
        state.Titles[counter] = rec.Body + blank;
        state.TitleNotes[counter] = rec.Text1 + blank;
        return true;
    });
    state.CurrentTitle = 1;
}

QString LoadTestTask(ProgramState &state, const QString &key)
{
    QString task;
    bool found = false;
    eachRecord(state, [&](const RecordC &rec) {
        if (trimBlanks(rec.Code) != key)
            return true;
        task = rec.Body;
        found = true;
        return false;
    });
    if (!found)
        throw ProgramError(QStringLiteral("Not found"));
    return task;
}

void PrintTitleList(PlainTextPrint &print, const QString &typeName, const Array<QString, 0, 10> &titles,
                    const Array<QString, 0, 10> &notes)
{
    print.SetUpPage();
    print.Printer.printLine(QStringLiteral("COMPOSITION TITLES (") + typeName.toUpper() + u')');
    print.Printer.setBold(false);
    print.Printer.printEmptyLine();
    for (int i = 1; i <= 10; ++i) {
        const QString paragraph = QString::number(i) + QStringLiteral(". ") + titles[i] + u' ' + notes[i]
                                  + QStringLiteral("  ") + QString::fromUtf16(WordCountRule) + QStringLiteral("    ");
        print.PrintTitleParagraph(paragraph);
        print.Printer.printEmptyLine();
    }
    print.Printer.endJob();
}

} // namespace sd
