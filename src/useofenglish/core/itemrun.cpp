#include "itemrun.h"

#include "conversion.h"
#include "frame/core/datafiles.h"
#include "frame/core/state.h"

namespace sd {

namespace {
/// Opens a file of one-item records and counts them; the count stays in the kind's copy.
int openAndCount(ProgramState &s, QString name, DataFile file, CountFor which)
{
    s.RecordLength = dataFileInfo(file).layout.length;
    OpenNamedDataFile(s, name);
    CountRecords(s, which);
    return which == CountFor::WordFormation ? s.WordFormationRecordCount.value() : s.ConversionRecordCount.value();
}
} // namespace

QList<OneItem> ReadWordSentences(ProgramState &s, const QString &level, const QString &exercise)
{
    QList<OneItem> items;
    const int count = openAndCount(s, QStringLiteral("wb") + level + exercise, DataFile::Uewb, CountFor::WordFormation);
    try {
        for (int r = 1; r <= count; ++r) {
            const RecordG g = ReadRecordAs<RecordG>(s, DataFile::Uewb, r);
            OneItem item;
            item.prompt = g.Text;
            item.word = g.Word;
            item.answer = g.Answer;
            item.alternatives = {g.Answer, QString(), QString(), QString()};
            items.append(item);
        }
    } catch (const ProgramError &) {
        CloseDataFile(s);
        throw;
    }
    CloseDataFile(s);
    if (items.isEmpty())
        throw ProgramError(QStringLiteral("No file"));
    return items;
}

QList<OneItem> ReadConversionItems(ProgramState &s, const QString &key)
{
    QList<OneItem> items;
    const int count = openAndCount(s, QString::fromLatin1(dataFileInfo(DataFile::Uesc).fileName), DataFile::Uesc,
                                   CountFor::Conversion);
    try {
        // Only the records of the exercise are decoded.
        CodeScan codes(s.Files.handle(), dataFileInfo(DataFile::Uesc).layout);
        for (int r = 1; r <= count; ++r) {
            if (!codes.codeIs(r, key))
                continue;
            const RecordE e = ReadRecordAs<RecordE>(s, DataFile::Uesc, r);
            OneItem item;
            item.prompt = e.Title;
            item.start = e.Text1;
            item.end = e.Text2;
            item.word = e.Word;
            item.answer = e.Answer[1];
            item.alternatives = {e.Answer[1], e.Answer[2], e.Answer[3], e.Answer[4]};
            items.append(item);
        }
    } catch (const ProgramError &) {
        CloseDataFile(s);
        throw ProgramError(QStringLiteral("No file"));
    }
    CloseDataFile(s);
    return items;
}

void ItemRun::start(ProgramState &s, QList<OneItem> items, int most)
{
    m_items = std::move(items);
    m_used = QList<bool>(m_items.size(), false);
    m_order.clear();
    m_score = 0;
    m_asked = int(std::min<qsizetype>(m_items.size(), most));
    if (m_asked > 0)
        next(s);
}

QList<int> ItemRun::order() const
{
    QList<int> out;
    for (int i : m_order)
        out << i + 1;
    return out;
}

bool ItemRun::check(const QString &typed)
{
    OneItem &item = current();
    item.typed = typed.trimmed();
    item.normalised = NormaliseAnswer(typed);
    item.right = JudgeItemAnswer(typed, item.answer, item.alternatives);
    if (item.right && !item.counted) {
        item.counted = true;
        ++m_score;
    }
    return item.right;
}

bool ItemRun::next(ProgramState &s)
{
    if (position() >= m_asked)
        return false;
    int r = s.Random.drawOneTo(int(m_items.size())) - 1;
    while (m_used.at(r))
        r = s.Random.drawOneTo(int(m_items.size())) - 1;
    m_used[r] = true;
    m_order.append(r);
    return true;
}

QString QuestionLine(int k, int count)
{
    return QStringLiteral("Question %1 of %2").arg(k).arg(count);
}

QString ItemScoreLine(int score, int count)
{
    return QStringLiteral("Score: %1 out of %2").arg(score).arg(count);
}

} // namespace sd
