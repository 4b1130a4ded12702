// `studydesk-data check DIR` and `show DIR FILE KEY`: a data directory seen as the program sees it.
#pragma once

#include "frame/core/datafiles.h"
#include "source.h"

namespace sd::data {

struct CheckReport
{
    Problems errors;  ///< by file, key and field
    QString coverage; ///< the table of exercises and test sections per kind and level
};

CheckReport checkDataDirectory(const QString &dir);

/// The record's fields by name, one a line; false with a message when the file or key is missing.
bool showRecord(const QString &dir, const QString &fileOrCode, const QString &key, QString *out);

} // namespace sd::data
