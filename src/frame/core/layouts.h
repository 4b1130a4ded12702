#pragma once

#include "checked.h"

#include <QStringList>

#include <array>
#include <string_view>

namespace sd {

/// One fixed-width field of a record layout.
struct FieldSpec
{
    std::string_view name;
    int width;
};

template<std::size_t N>
constexpr int totalWidth(const std::array<FieldSpec, N> &fields)
{
    int sum = 0;
    for (const auto &f : fields)
        sum += f.width;
    return sum;
}

/// A layout's fields in record order; expands TextN/ItemN style runs.
template<std::size_t N>
constexpr std::array<FieldSpec, N> fieldsWithRun(std::initializer_list<FieldSpec> head,
                                                 std::string_view runNames, int runWidth,
                                                 std::initializer_list<FieldSpec> tail)
{
    std::array<FieldSpec, N> out{};
    std::size_t i = 0;
    for (const auto &f : head)
        out[i++] = f;
    std::size_t start = 0;
    while (start < runNames.size()) {
        std::size_t end = runNames.find(' ', start);
        if (end == std::string_view::npos)
            end = runNames.size();
        out[i++] = FieldSpec{runNames.substr(start, end - start), runWidth};
        start = end + 1;
    }
    for (const auto &f : tail)
        out[i++] = f;
    return out;
}

namespace layout {

inline constexpr auto A = fieldsWithRun<11>({{"Code", 6}, {"Name", 20}},
                                            "Text1 Text2 Text3 Text4 Text5 Text6 Text7 Text8", 100,
                                            {{"Answers", 10}});
inline constexpr auto B = fieldsWithRun<19>(
    {{"Code", 6}, {"Name", 20}, {"Title", 120}},
    "Item1 Item2 Item3 Item4 Item5 Item6 Item7 Item8 Item9 Item10 Item11 Item12 Item13 Item14 Item15", 80,
    {{"Answers", 40}});
inline constexpr auto C = std::array<FieldSpec, 4>{{{"Code", 12}, {"Body", 640}, {"Text1", 100}, {"Text2", 100}}};
inline constexpr auto D = fieldsWithRun<19>(
    {{"Code", 6}, {"Name", 20}, {"Title", 120}},
    "Item1 Item2 Item3 Item4 Item5 Item6 Item7 Item8 Item9 Item10 Item11 Item12 Item13 Item14 Item15", 60,
    {{"Answers", 40}});
inline constexpr auto E = fieldsWithRun<10>({{"Code", 6}, {"Title", 120}, {"Text1", 100}, {"Text2", 100}, {"Word", 15}},
                                            "Answer1 Answer2 Answer3 Answer4 Answer5", 60, {});
inline constexpr auto F = fieldsWithRun<19>(
    {{"Code", 6}, {"Name", 20}, {"Title", 60}},
    "Item1 Item2 Item3 Item4 Item5 Item6 Item7 Item8 Item9 Item10 Item11 Item12 Item13 Item14 Item15", 15,
    {{"Answers", 20}});
inline constexpr auto G = std::array<FieldSpec, 4>{{{"Code", 6}, {"Text", 120}, {"Word", 15}, {"Answer", 20}}};
inline constexpr auto H = fieldsWithRun<15>(
    {{"Code", 6}, {"Name", 20}, {"Title", 120}},
    "Item1 Item2 Item3 Item4 Item5 Item6 Item7 Item8 Item9 Item10 Item11", 40, {{"Answers", 60}});

// Every layout's widths add up exactly to its record length.
static_assert(totalWidth(A) == 836);
static_assert(totalWidth(B) == 1386);
static_assert(totalWidth(C) == 852);
static_assert(totalWidth(D) == 1086);
static_assert(totalWidth(E) == 641);
static_assert(totalWidth(F) == 331);
static_assert(totalWidth(G) == 161);
static_assert(totalWidth(H) == 646);

} // namespace layout

/// A layout as seen at run time: its letter, fields and record length.
struct LayoutInfo
{
    char letter;
    const FieldSpec *fields;
    int fieldCount;
    int length;

    int indexOf(std::string_view name) const
    {
        for (int i = 0; i < fieldCount; ++i)
            if (fields[i].name == name)
                return i;
        return -1;
    }
};

template<std::size_t N>
constexpr LayoutInfo layoutInfo(char letter, const std::array<FieldSpec, N> &fields)
{
    return LayoutInfo{letter, fields.data(), int(N), totalWidth(fields)};
}

// Typed views of a record's trimmed fields, in layout order. Numbered runs are indexed from 1.

struct RecordA
{
    QString Code, Name;
    Array<QString, 1, 8> Text;
    QString Answers;
    static RecordA from(const QStringList &f);
};

/// Layouts B, D, F and H: a code, a name, a title, a run of items and the answers.
template<int ItemCount>
struct RecordWithItems
{
    QString Code, Name, Title;
    Array<QString, 1, ItemCount> Item;
    QString Answers;
    static RecordWithItems from(const QStringList &f);
};

using RecordB = RecordWithItems<15>;

struct RecordC
{
    QString Code, Body, Text1, Text2;
    static RecordC from(const QStringList &f);
};

/// Layout D (cloze files) shares the shape of layout B with narrower items.
using RecordD = RecordB;

struct RecordE
{
    QString Code, Title, Text1, Text2, Word;
    Array<QString, 1, 5> Answer;
    static RecordE from(const QStringList &f);
};

/// Layout F (error correction) shares the shape of layout B with narrower items.
using RecordF = RecordB;

struct RecordG
{
    QString Code, Text, Word, Answer;
    static RecordG from(const QStringList &f);
};

using RecordH = RecordWithItems<11>;

} // namespace sd
