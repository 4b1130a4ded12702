#pragma once

#include "readingscreen.h"

namespace sd {

/// Reading text reconstruction (kind 3): a passage with numbered gaps, the sheet of removed
/// sections and one box per gap; a key ending in "*" means one section is not needed.
class rcre : public ReadingScreen
{
    Q_OBJECT

public:
    rcre(ProgramState &state, Navigator &nav);

protected:
    QString instruction() const override;
    QString extraLine() const override;
    int alwaysShown() const override { return 4; }
    QString numberLabelName(int i) const override;
};

} // namespace sd
