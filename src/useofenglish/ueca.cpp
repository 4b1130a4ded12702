#include "ueca.h"

#include "core/gapscoring.h"
#include "frame/core/state.h"

namespace sd {

ueca::ueca(ProgramState &s, Navigator &nav) : GapExerciseScreen(QStringLiteral("ueca"), s, nav, 6)
{
    buildPassageAndColumn(
        [this](int n) {
            auto *c = new QComboBox(this);
            c->setObjectName(QStringLiteral("Combo%1").arg(n));
            c->setAccessibleName(QStringLiteral("Gap %1").arg(n));
            connect(c, &QComboBox::textActivated, this, [this, n](const QString &t) { guarded([=, this] { choose(n, t); }); });
            Combo[n] = c;
            return c;
        },
        QRect(16, 124, 620, 536), QStringLiteral("Text"));
    QList<QWidget *> chain;
    for (QComboBox *c : Combo)
        chain.append(c);
    setGapTabOrder(chain);
}

void ueca::load()
{
    const RecordD r = readRecord<RecordD>(DataFile::Ueca);
    beginLoad(QStringLiteral("Complete the passage by selecting one alternative for each gap."));
    loadPassage(r.Name);
    PrepareChoiceGaps(state, kind(), r.Item);
    for (int n = 1; n <= MaxGaps; ++n) {
        KeyBox[n]->setText(state.GapKey[n]);
        Combo[n]->clear();
        for (int j = 1; j <= 4; ++j)
            if (!state.GapAlternatives[n][j].trimmed().isEmpty())
                Combo[n]->addItem(state.GapAlternatives[n][j]);
        Combo[n]->setCurrentIndex(-1);
    }
    hideUnusedRows();
    finishLoad();
}

void ueca::choose(int n, const QString &text)
{
    state.GapAnswer[n] = text;
    if (!state.TestScored)
        state.SavedAnswer[kind()][n] = text;
}

} // namespace sd
