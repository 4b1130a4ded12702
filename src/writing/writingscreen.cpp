#include "writingscreen.h"

#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"
#include "ui/richtextbox.h"
#include "ui/webpagebox.h"

namespace sd {

WritingScreen::WritingScreen(const QString &code, ProgramState &s, Navigator &nav) : AppScreen(code, s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    setCaptionColours(ui::ImageButton::highlightColour(), ui::ImageButton::captionColour());
}

void WritingScreen::addHeadings(const QString &third)
{
    addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(16, 8, 56, 56));
    lblHead1 = addHeadingPlate(1, state.ActivityHeadings[state.ActivityIndex].toUpper(), QRect(84, 12, 272, 42));
    lblHead2 = addHeadingPlate(2, state.PaperHeadings[2].toUpper(), QRect(368, 12, 272, 42));
    const int type = state.CompositionTypeNumber;
    const QString name = third.isEmpty() && type >= 1 && type <= 7 ? state.CompositionTypeNames[type].toUpper() : third;
    lblHead3 = addHeadingPlate(3, name, QRect(652, 12, 272, 42));
}

void WritingScreen::playRefusal()
{
    state.Sound.stop();
    PlayNamedSound(state, state.CurrentSound);
}

void WritingScreen::openWritingHelp(const QString &topic)
{
    state.HelpTopic = topic;
    this->nav().openModal(QStringLiteral("infocomp"));
}

ui::ImageButton *WritingScreen::addCaptioned(const QString &name, const QString &icon, QRect rect,
                                             const QString &captionName, const QString &caption)
{
    ui::ImageButton *b = addButton(name, icon, rect, captionName, ui::lineBreaks(caption),
                                   QRect(rect.x() - 50, rect.bottom() + 2, rect.width() + 100, 40));
    b->setAccessibleName(ui::lineBreaks(caption).replace(u'\n', u' '));
    return b;
}

WebPageBox *WritingScreen::addPage(const QString &name, const QString &accessibleName, QRect rect, const QString &file)
{
    auto *box = new WebPageBox(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    place(box, rect);
    if (!box->loadDataFile(state.DataDir, file))
        box->setPlainText(QStringLiteral("ERROR - No file"));
    return box;
}

RichTextBox *WritingScreen::addRichText(const QString &name, const QString &accessibleName, QRect rect,
                                        const QString &file)
{
    auto *box = new RichTextBox(this);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    place(box, rect);
    if (!file.isEmpty())
        showFile(box, file);
    return box;
}

bool WritingScreen::showFile(RichTextBox *box, const QString &file)
{
    if (box->loadDataFile(state.DataDir, file))
        return true;
    box->setPlainMessage(QStringLiteral("ERROR - No file"));
    return false;
}

} // namespace sd
