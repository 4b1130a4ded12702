#include "compoption.h"

#include "core/composition.h"
#include "frame/core/state.h"

namespace sd {

compoption::compoption(ProgramState &s, Navigator &nav) : compoption(QStringLiteral("compoption"), s, nav) {}

compoption::compoption(const QString &code, ProgramState &s, Navigator &nav) : WritingScreen(code, s, nav)
{
    const bool samples = code == u"compoptionsample";
    addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(16, 8, 56, 56));
    if (samples) {
        addLabel(QStringLiteral("lblSamples"), QStringLiteral("SAMPLES"), QRect(112, 40, 800, 44), 20, true,
                 Qt::AlignCenter);
    } else {
        addHeadingPlate(1, s.ActivityHeadings[s.ActivityIndex].toUpper(), QRect(230, 20, 272, 42));
        addHeadingPlate(2, s.PaperHeadings[2].toUpper(), QRect(522, 20, 272, 42));
    }
    addLabel(QStringLiteral("lblSelect"), QStringLiteral("SELECT THE TYPE OF COMPOSITION"), QRect(112, 100, 800, 50), 22,
             true, Qt::AlignCenter);
    for (int n = 1; n <= CompositionTypeCount; ++n) {
        ui::MenuLabel *l = addMenuLabel(QString::fromLatin1(compositionType(n).label), s.CompositionTypeNames[n],
                                        QRect(362, 170 + (n - 1) * 58, 300, 46), 18, Qt::AlignCenter);
        onClick(l, [this, n] { choose(n); });
        m_types.append(l);
    }
    ui::ImageButton *help = addButton(QStringLiteral("Help"), QStringLiteral("help"), QRect(386, 650, 52, 52),
                                      QStringLiteral("lblHelp"), QStringLiteral("Help"));
    onClick(help, [this] { openWritingHelp(QStringLiteral("helpcomp")); });
    ui::ImageButton *back = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(586, 650, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Back"));
    onClick(back, [this] {
        state.SamplesFlag = false;
        closeScreen();
    });
    s.CompositionType.clear();
    s.HoverIndex = 0;
}

void compoption::choose(int n)
{
    SelectCompositionType(state, n);
    for (int i = 0; i < m_types.size(); ++i)
        m_types[i]->setChosen(i + 1 == n);
    if (state.SamplesFlag) {
        this->nav().open(QStringLiteral("compsamples"));
        return;
    }
    state.ScreenMode = QStringLiteral("titles");
    this->nav().open(n == 1 ? QStringLiteral("letatitles") : QStringLiteral("seecomptitle"));
}

compoptionsample::compoptionsample(ProgramState &s, Navigator &nav) : compoption(QStringLiteral("compoptionsample"), s, nav)
{
}

} // namespace sd
