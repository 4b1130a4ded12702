#pragma once

#include "frame/core/history.h"

#include <QByteArray>

namespace sd {

struct ProgramState;

/// The test in hand as JSON: the answers of every section, the done, visited and score lists, the
/// composition texts and the minutes used.
QByteArray TestStateJson(const ProgramState &s);
/// Puts a kept test back into the state over a test just started: answers, marks, compositions
/// and the clock's minutes. False, with the state untouched, when the JSON is not a kept test.
bool RestoreTestState(ProgramState &s, const QByteArray &json);

/// Whether a test is under way and not finished: the one thing worth keeping.
bool TestInHand(const ProgramState &s);
/// Keeps the test in hand in the history (replacing what was kept for its paper); does nothing
/// when no test is in hand.
void KeepTestInHand(ProgramState &s);

/// "Continue Test 3 (32 minutes used)?"
QString ContinueQuestion(const PausedTest &paused);

} // namespace sd
