#pragma once

#include "readingscreen.h"

namespace sd {

/// Reading headings (kind 1): a text of up to eight numbered paragraphs, the sheet of lettered
/// headings and one box per paragraph; a key ending in "*" means one heading is not needed.
class rche : public ReadingScreen
{
    Q_OBJECT

public:
    rche(ProgramState &state, Navigator &nav);

protected:
    QString instruction() const override;
    QString extraLine() const override;
};

} // namespace sd
