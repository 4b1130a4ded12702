#pragma once

#include <QDateTime>

#include <array>

namespace sd {

/// What one section of a sat test gave.
struct SectionResult
{
    bool done = false;
    int score = 0;
    int questions = 0; ///< Reading: the section's own number of questions
};

/// What a finished test leaves in the student's history.
struct TestRecord
{
    QDateTime finishedAt;
    int paper = 0;
    int test = 0;
    int percent = 0;
    int verdict = 0;
    int minutes = 0;
    std::array<SectionResult, 6> sections;
};
} // namespace sd
