#pragma once

#include <QList>

class QTextDocument;
class QWidget;

namespace sd {

struct ProgramState;

/// Prints rich-text documents one after another as one job, with the busy pointer shown meanwhile.
/// Returns false when printing failed; the student has then been told so.
bool printRichText(ProgramState &state, QWidget *parent, const QList<QTextDocument *> &documents);

} // namespace sd
