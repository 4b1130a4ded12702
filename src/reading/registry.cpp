#include "registry.h"

#include "frame/navigator.h"
#include "rc2check.h"
#include "rche.h"
#include "rcma.h"
#include "rcmc.h"
#include "rcre.h"

namespace sd {

namespace {
template<typename T>
void addExercise(Navigator &nav, const char *code)
{
    nav.registerScreen(QString::fromLatin1(code), [](ProgramState &s, Navigator &n) {
        auto *screen = new T(s, n);
        screen->runLoad();
        return screen;
    });
}

template<typename T>
void addWindow(Navigator &nav, const char *code)
{
    nav.registerScreen(QString::fromLatin1(code), [](ProgramState &s, Navigator &n) { return new T(s, n); });
}
} // namespace

void registerReadingScreens(Navigator &nav)
{
    addExercise<rche>(nav, "rche");
    addExercise<rcmc>(nav, "rcmc");
    addExercise<rcre>(nav, "rcre");
    addExercise<rcma>(nav, "rcma");
    addWindow<rc2check>(nav, "rc2check");
    addWindow<rchecheck>(nav, "rchecheck");
}

} // namespace sd
