// What a record of each data file must hold to work on its screen: the rules that `build` obeys
// and `check` enforces, so that the two never disagree.
#pragma once

#include "frame/core/datafiles.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace sd::data {

struct FieldProblem
{
    QString field;
    QString message;
};

enum class KeyKind { Practice, Test, Other, Bad };

/// "101".."310" practice, "x01".."x10" test; composition type codes in praccomp.dat.
KeyKind keyKind(DataFile file, const QString &key);
/// Practice keys in order, then test keys: the order of records in a built file.
bool keyLess(const QString &a, const QString &b);

/// A field of a record by name (fields in layout order).
QString fieldOf(DataFile file, const QStringList &fields, std::string_view name);

/// Every way the record's fields do not fit their kind, by field.
QList<FieldProblem> checkFields(DataFile file, const QStringList &fields);

struct FileReference
{
    QString field;
    QString fileName; ///< "rcmc101.rtf"
};
/// The passage, sheet and text files a record names and its screen opens.
QList<FileReference> referencedFiles(DataFile file, const QStringList &fields);

/// Short kind code of a data file ("rcmc") and the file for a code; false for unknown codes.
QString kindCode(DataFile file);
bool dataFileForCode(const QString &code, DataFile *file);

} // namespace sd::data
