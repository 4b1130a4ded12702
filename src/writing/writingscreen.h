#pragma once

#include "frame/appscreen.h"

#include <QLabel>

namespace sd {

/// Common ground of the Writing screens: the three heading plates, the refusal sound of the arrows
/// and the writing help screen.
class WritingScreen : public AppScreen
{
    Q_OBJECT

public:
    WritingScreen(const QString &code, ProgramState &state, Navigator &nav);

protected:
    /// Plates 1..3: the activity, the paper and the composition type, in capitals. `third` replaces
    /// the type name when given.
    void addHeadings(const QString &third = {});
    /// The clip named by CurrentSound: an arrow that cannot move on.
    void playRefusal();
    /// Opens the writing help screen `infocomp` on the topic.
    void openWritingHelp(const QString &topic);
    /// A picture button with its caption under it; the caption may break lines with a carriage return.
    ui::ImageButton *addCaptioned(const QString &name, const QString &icon, QRect rect, const QString &captionName,
                                  const QString &caption);

    QLabel *lblHead1 = nullptr, *lblHead2 = nullptr, *lblHead3 = nullptr;
};

} // namespace sd
