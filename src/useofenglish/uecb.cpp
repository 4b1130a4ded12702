#include "uecb.h"

#include "core/gapscoring.h"
#include "frame/core/state.h"

namespace sd {

uecb::uecb(ProgramState &s, Navigator &nav) : GapExerciseScreen(QStringLiteral("uecb"), s, nav, 7)
{
    // The student's boxes are Text1..15; the correct answers lie over them in Correct1..15.
    buildTypedColumn(Text, QStringLiteral("Correct"));
    lblNote = addLabel(QStringLiteral("lblNote"), QStringLiteral(" One correct answer is given. There may be alternatives. "),
                       QRect(16, 634, 620, 24), 10, true);
    lblNote->hide();
    testOutOfFifteen = true;
}

void uecb::load()
{
    const RecordD r = readRecord<RecordD>(DataFile::Uecb);
    beginLoad(QStringLiteral("Complete the passage by writing ONE word") + QChar(13) + QStringLiteral("in each box."));
    loadPassage(r.Name);
    PrepareOpenGaps(state, kind(), r.Item);
    for (QLineEdit *box : Text)
        box->clear();
    hideUnusedRows();
    finishLoad();
}

void uecb::showAnswerExtras()
{
    lblNote->show();
}

} // namespace sd
