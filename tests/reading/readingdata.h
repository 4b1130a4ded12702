#pragma once

// One small data directory with exercises of the four Reading kinds, written by the tests.

#include "common/fixtures.h"

namespace sd::test {

/// Multiple choice: 101 ABCD, 207 BBAACB, 301 ABCDABC, 102 no passage, 103 no questions, 104 no key.
/// Reconstruction: 101 CAEBD*, 102 CAEBDF, 103 no passage. Headings: 101 BDAFCE*, 102 ABCDEFGH,
/// 103 no passage. Matching: 101 B/A/AD/C, 103 no passage, 104 B/A/ABCD/C. Test 3 (x03) of each kind
/// is its 101 (207 for multiple choice).
inline void writeReadingExercises(DataDir &dir)
{
    const auto s = [](const char *t) { return QString::fromLatin1(t); };
    for (const char *name : {"mc4", "mc6", "mc7", "mcq", "re", "res", "he", "hes"})
        dir.writeRtf(s(name), s(name) + s(" text\n1 What does the writer say?"));
    dir.writeRtf(s("ma"), s("A Hannah\nB Luis\nC Priya\nD Sam"));
    dir.writeText(s("mc6.htm"), s("<html><body><p>Cooking as a web page.</p></body></html>"));

    // Layout A: Code, Name, Text1, seven unused texts, Answers.
    const auto a = [&s](const char *code, const char *name, const char *sheet, const char *key) {
        return QStringList{s(code), s(name), s(sheet)} + QStringList(7) + QStringList{s(key)};
    };
    dir.writeRecords(DataFile::Rcmc, {a("101", "mc4", "mcq", "ABCD"), a("207", "mc6", "mcq", "BBAACB"),
                                      a("301", "mc7", "mcq", "ABCDABC"), a("102", "none", "mcq", "ABCD"),
                                      a("103", "mc4", "none", "ABCD"), a("104", "mc4", "mcq", ""),
                                      a("x03", "mc6", "mcq", "BBAACB")});
    dir.writeRecords(DataFile::Rcre, {a("101", "re", "res", "CAEBD*"), a("102", "re", "res", "CAEBDF"),
                                      a("103", "none", "res", "CAEBD*"), a("x03", "re", "res", "CAEBD*")});
    dir.writeRecords(DataFile::Rche, {a("101", "he", "hes", "BDAFCE*"), a("102", "he", "hes", "ABCDEFGH"),
                                      a("103", "none", "hes", "BDAFCE*"), a("x03", "he", "hes", "BDAFCE*")});

    // Layout B: Code, Name, Title, Item1..15, Answers.
    const QStringList items{s("started after a teacher suggested it"), s("likes repeating parts of a lesson"),
                            s("(two people) mention a family member"), s("uses music to stop thinking about work")};
    const auto b = [&](const char *code, const char *name, const char *key) {
        return QStringList{s(code), s(name), s("Which person ...?")} + items + QStringList(11) + QStringList{s(key)};
    };
    dir.writeRecords(DataFile::Rcma, {b("101", "ma", "B/A/AD/C"), b("103", "none", "B/A/AD/C"),
                                      b("104", "ma", "B/A/ABCD/C"), b("x03", "ma", "B/A/AD/C")});
}

/// Kind label of the type menu for a Reading kind.
inline QString readingKindLabel(int kind)
{
    static const char *labels[] = {"lblrche", "lblrcmc", "lblrcre", "lblrcma"};
    return QString::fromLatin1(labels[kind - 1]);
}

} // namespace sd::test
