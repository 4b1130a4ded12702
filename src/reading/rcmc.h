#pragma once

#include "readingscreen.h"

namespace sd {

/// Reading multiple choice (kind 2): a passage, a questions sheet and seven answer boxes.
class rcmc : public ReadingScreen
{
    Q_OBJECT

public:
    rcmc(ProgramState &state, Navigator &nav);
    /// Number labels of the seven-box screens: Label1, Label2, Label3, Label5, Answerlbl5..7.
    static QString legacyNumberLabel(int i);

protected:
    QString instruction() const override;
    int alwaysShown() const override { return 4; }
    QString numberLabelName(int i) const override { return legacyNumberLabel(i); }
};

} // namespace sd
