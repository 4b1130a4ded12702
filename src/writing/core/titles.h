#pragma once

#include "frame/core/checked.h"

#include <QString>

namespace sd {

struct ProgramState;
class PlainTextPrint;

/// How a titles screen fills the title store.
enum class TitleLoad {
    Titles,  ///< the store is cleared first; texts kept as read
    Letters, ///< the store is not cleared; each text gets a blank appended
};

/// Fills Titles and TitleNotes with the records of CompositionType from praccomp.dat, numbered by
/// record order: the Nth record of the type is title N. An eleventh record of the type throws
/// RangeError (ten is the capacity); a missing or unreadable file throws ProgramError. The data
/// file is closed in every case. CurrentTitle is 0 while loading and 1 afterwards.
void LoadTitles(ProgramState &state, TitleLoad how);

/// The task of a test's Part 1 letter: the Body of the praccomp.dat record keyed `key` ("x03").
/// Throws ProgramError when the file or the record is missing.
QString LoadTestTask(ProgramState &state, const QString &key);

/// The printed list of titles: a bold heading "COMPOSITION TITLES (NARRATIVE)", then the ten
/// numbered paragraphs, each followed by an empty line. Ends the job.
void PrintTitleList(PlainTextPrint &print, const QString &typeName, const Array<QString, 0, 10> &titles,
                    const Array<QString, 0, 10> &notes);

} // namespace sd
