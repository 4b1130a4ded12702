#include "registry.h"

#include "compoption.h"
#include "editors.h"
#include "frame/navigator.h"
#include "samplescreens.h"
#include "titlescreens.h"

namespace sd {

void registerWritingScreens(Navigator &nav)
{
    nav.registerScreen<compoption>("compoption");
    nav.registerScreen<compoptionsample>("compoptionsample");
    nav.registerScreen<seecomptitle>("seecomptitle");
    nav.registerScreen<letatitles>("letatitles");
    nav.registerScreen<showleta>("showleta");
    nav.registerScreen<letapicture>("letapicture");
    nav.registerScreen<seecomptitlex>("seecomptitlex");
    nav.registerScreen<writethecomp>("writethecomp");
    nav.registerScreen<writetheleta>("writetheleta");
    nav.registerScreen<savethecomp>("savethecomp");
    nav.registerScreen<continuedraft>("continuedraft");
    nav.registerScreen<compsamples>("compsamples");
    nav.registerScreen<infocomp>("infocomp");
}

} // namespace sd
