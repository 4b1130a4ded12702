#pragma once

#include <QByteArray>
#include <QString>

namespace sd {

struct ProgramState;

/// One row of the composition type table.
struct CompositionTypeInfo
{
    int number;           ///< 1..7
    const char *code;     ///< "leta", "nar" ...
    int index;            ///< 22..28: selects the type's help topic
    const char *listName; ///< "narlist"; empty for the Transactional letter
    const char *label;    ///< "lblnar"
};

inline constexpr int CompositionTypeCount = 7;
/// Row n (1..7); throws RangeError outside.
const CompositionTypeInfo &compositionType(int n);

/// Fills CompositionType, CompositionTypeNumber, CompositionIndex and (but for the Transactional
/// letter, which keeps it) CompositionListName from row n.
void SelectCompositionType(ProgramState &state, int n);
/// The help topic of a composition index: 22..28 the type's topic, 29 "helpwrite", else "helpcomp".
QString compositionHelpTopic(int compositionIndex);
/// The samples' index of a titles index: 22..28 become 41..47, anything else 41.
int samplesIndex(int compositionIndex);

/// Texts of the program that more than one screen shows.
inline constexpr char16_t WordCountRule[] = u"(Your answer should be between 120 and 180 words.)";
inline constexpr char16_t NoAddresses[] = u"Do not include any addresses.  ";
inline constexpr char16_t SaveErrorText[] = u"Error in saving. Check target drive and directory.";
inline constexpr char16_t NoTextError[] = u"ERROR - NO TEXT";

/// "Test paper 3 B   Topic number: " (the blanks are part of the text).
QString paperLabelFor(int testNumber);
/// The heading above a practice composition: the title label, a blank, the note label.
QString practiceHeading(const QString &title, const QString &note);
/// The heading above a test composition: the paper label and the number the student typed.
QString testHeading(const QString &paperLabel, const QString &number);
/// The letter editor's heading: the title, a blank, its note.
QString letterHeading(const QString &title, const QString &note);
/// The task label of a Transactional-letter topic: "3. " + title + note + the fixed instruction.
/// The stored title and note end in a blank, which separates the pieces.
QString letterTaskText(const QString &topicCode, const QString &title, const QString &note);

/// A text box's line breaks as CR LF, whatever the box gave.
QString withCrLf(const QString &text);
/// The saved file: a blank, the heading, a blank, the text as typed, two blanks, the name and a
/// blank, each line ended by CR LF; UTF-8, so that every letter typed is kept.
QByteArray compositionFileBytes(const QString &heading, const QString &text, const QString &name);
/// ".txt" added to a name without an extension.
QString withTextExtension(const QString &path);
/// Writes the bytes atomically (the old file stays whole if anything fails); false with a reason.
bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *reason = nullptr);

} // namespace sd
