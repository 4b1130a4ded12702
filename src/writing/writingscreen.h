#pragma once

#include "frame/appscreen.h"

#include <QLabel>

namespace sd {

class RichTextBox;
class WebPageBox;

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

    /// A web page box showing `file` of the data directory, "ERROR - No file" when it cannot.
    WebPageBox *addPage(const QString &name, const QString &accessibleName, QRect rect, const QString &file);
    /// A rich-text box showing `file` (none when empty), "ERROR - No file" when it cannot.
    RichTextBox *addRichText(const QString &name, const QString &accessibleName, QRect rect, const QString &file);
    /// Shows the data file in the box, or "ERROR - No file"; false when it could not.
    bool showFile(RichTextBox *box, const QString &file);

    QLabel *lblHead1 = nullptr, *lblHead2 = nullptr, *lblHead3 = nullptr;
};

} // namespace sd
