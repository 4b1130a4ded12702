#include "random.h"

#include "state.h"

namespace sd {

void PickRandomRecord(ProgramState &s)
{
    for (;;) {
        if (!s.UsedRecords[s.CurrentRecord]) {
            ++s.PickCount;
            s.UsedRecords[s.CurrentRecord] = true;
            s.LastPickIndex = s.PickCount;
            s.PickOrder[s.PickCount] = s.CurrentRecord;
            return;
        }
        s.Random.reseed();
        s.CurrentRecord = int(s.Random.next() * s.SearchRecordCount) + 1;
    }
}

void ClearPicks(ProgramState &s)
{
    s.UsedRecords.fill(false);
    s.PickOrder.fill(Int16());
    s.PickCount = 0;
    s.LastPickIndex = 0;
}

} // namespace sd
