// `studydesk-data build SOURCE OUT`: the whole data directory from the content sources.
#pragma once

#include "source.h"

namespace sd::data {

struct BuildSummary
{
    int exercises = 0;
    int dataFiles = 0;
    int helpTopics = 0;
    int soundClips = 0;
    int filesWritten = 0;
};

/// Converts every source; writes nothing unless all of them are right. Problems are placed by
/// source file and line.
bool buildDataDirectory(const QString &sourceDir, const QString &outDir, Problems &problems,
                        BuildSummary *summary = nullptr);

} // namespace sd::data
