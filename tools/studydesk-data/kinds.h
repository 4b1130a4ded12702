// From one exercise source to its record and the files the record names.
#pragma once

#include "frame/core/datafiles.h"
#include "housestyle.h"
#include "source.h"

#include <QByteArray>
#include <QList>
#include <QRegularExpressionMatch>
#include <QString>
#include <QStringList>

namespace sd::data {

struct BuiltFile
{
    QString name; ///< in the data directory: "rcmc101.rtf"
    QByteArray bytes;
};

struct Exercise
{
    DataFile file = DataFile::Rcmc;
    QString key;
    QString sourcePath;
    QStringList fields; ///< in layout order
    QList<BuiltFile> files;
    /// One-item kinds (sentence conversion, word-formation sentences): a record per item, in
    /// place of `fields`.
    QList<QStringList> records;
    /// A data file of the exercise's own ("wb101"); empty when its records go into the kind's file.
    QString ownFile;
};

void setField(Exercise &ex, std::string_view name, const QString &value);

/// The kinds the tool builds, in kind order: "rche", "rcmc", "rcre", "rcma", "ueca", "uecb", "uesc",
/// "ueec", "uewb".
const QList<DataFile> &buildableKinds();

/// Converts one source file of a kind; false with problems placed by file and line.
bool convertExercise(DataFile file, const SourceFile &src, Exercise *out, Problems &problems);

/// Shared by the converters: placed complaints and the checks every source needs.
class Converter
{
public:
    Converter(const SourceFile &src, Problems &problems) : m_src(src), m_problems(problems) {}

    const SourceFile &src() const { return m_src; }
    void error(int line, const QString &message);
    bool failed() const { return m_failed; }

    /// Only these fields and blocks may appear; `key:` must match the file name.
    void expect(const QStringList &fields, const QStringList &blocks);
    QString field(const QString &name);
    const SourceBlock *single(const QString &block);
    QList<const SourceBlock *> several(const QString &block, int least, int most);
    /// The whole line must match; otherwise the complaint names what was expected.
    QRegularExpressionMatch line(int lineNo, const QString &text, const QRegularExpression &re,
                                 const QString &expected);
    /// The two documents of a text: `base`.rtf and `base`.htm.
    void addDocument(Exercise &ex, const QString &base, StyledDocument &doc);
    QString base(DataFile file) const;

private:
    const SourceFile &m_src;
    Problems &m_problems;
    bool m_failed = false;
};

bool convertHeadings(Converter &c, Exercise &ex);
bool convertMultipleChoice(Converter &c, Exercise &ex);
bool convertReconstruction(Converter &c, Exercise &ex);
bool convertMatching(Converter &c, Exercise &ex);
bool convertCloze(Converter &c, Exercise &ex);
bool convertErrorCorrection(Converter &c, Exercise &ex);
bool convertConversion(Converter &c, Exercise &ex);
bool convertWordFormation(Converter &c, Exercise &ex);

/// Letters A, B, C ... in order from the first: false with a complaint at the first one out of step.
bool lettersInOrder(Converter &c, const QList<std::pair<int, QChar>> &letters, const QString &what);

} // namespace sd::data
