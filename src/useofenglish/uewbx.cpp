#include "uewbx.h"

#include "frame/core/state.h"

namespace sd {

uewbx::uewbx(ProgramState &s, Navigator &nav) : GapExerciseScreen(QStringLiteral("uewbx"), s, nav, 10)
{
    // Text1..10 are the student's boxes; Text11..20 the correct answers laid over them.
    buildTypedColumn(Text, QStringLiteral("Key"));
    for (int n = 1; n <= 15; ++n)
        KeyBox[n]->setObjectName(QStringLiteral("Text%1").arg(n + 10));
}

void uewbx::load()
{
    const RecordH r = readRecord<RecordH>(DataFile::ExamUewb);
    beginLoad(QStringLiteral("Use the word given to form a word which will complete the text."));
    loadPassage(r.Name);
    state.GapCount = 10;
    for (int n = 1; n <= 10; ++n) {
        // The base word before the first "/", the key after it; with no "/", the same scan as the
        // alternatives: no word, and the item less its first character.
        const QString &item = r.Item[n];
        const qsizetype slash = item.indexOf(u'/');
        const QString word = slash < 0 ? QString() : item.left(slash);
        state.GapKey[n] = slash < 0 ? item.mid(1) : item.mid(slash + 1);
        state.GapAnswer[n].clear();
        Label[n]->setText(QStringLiteral("%1. %2").arg(n).arg(word));
        Label[n]->setAccessibleName(QStringLiteral("Gap %1, base word %2").arg(n).arg(word));
        Text[n]->clear();
    }
    for (int n = 11; n <= 15; ++n)
        state.GapKey[n].clear();
    hideUnusedRows();
    finishLoad();
}

} // namespace sd
