#include "layouts.h"

namespace sd {

namespace {
// A short list (a partial or unexpected record) reads as empty fields.
QString at(const QStringList &f, int i)
{
    return i < f.size() ? f.at(i) : QString();
}

template<typename Run>
void fillRun(Run &run, const QStringList &f, int firstIndex)
{
    for (int n = Run::first; n <= Run::last; ++n)
        run[n] = at(f, firstIndex + n - Run::first);
}
} // namespace

RecordA RecordA::from(const QStringList &f)
{
    RecordA r;
    r.Code = at(f, 0);
    r.Name = at(f, 1);
    fillRun(r.Text, f, 2);
    r.Answers = at(f, 10);
    return r;
}

template<int ItemCount>
RecordWithItems<ItemCount> RecordWithItems<ItemCount>::from(const QStringList &f)
{
    RecordWithItems r;
    r.Code = at(f, 0);
    r.Name = at(f, 1);
    r.Title = at(f, 2);
    fillRun(r.Item, f, 3);
    r.Answers = at(f, 3 + ItemCount);
    return r;
}

template struct RecordWithItems<15>;
template struct RecordWithItems<11>;

RecordC RecordC::from(const QStringList &f)
{
    return RecordC{at(f, 0), at(f, 1), at(f, 2), at(f, 3)};
}

RecordE RecordE::from(const QStringList &f)
{
    RecordE r;
    r.Code = at(f, 0);
    r.Title = at(f, 1);
    r.Text1 = at(f, 2);
    r.Text2 = at(f, 3);
    r.Word = at(f, 4);
    fillRun(r.Answer, f, 5);
    return r;
}

RecordG RecordG::from(const QStringList &f)
{
    return RecordG{at(f, 0), at(f, 1), at(f, 2), at(f, 3)};
}

} // namespace sd
