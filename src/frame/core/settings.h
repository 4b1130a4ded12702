#pragma once

#include <QString>

class QSettings;

namespace sd {

struct ProgramState;

/// Names fixed once: they decide where every student's settings, drafts and history are kept.
inline constexpr char OrganisationName[] = "StudyDesk";
inline constexpr char ApplicationName[] = "studydesk";
inline constexpr char DesktopId[] = "org.studydesk.StudyDesk";

/// The student's own choices, kept between runs with QSettings: the clock, sounds and their volume,
/// passages as web pages or rich text, and the size of the reading text.
struct StudentSettings
{
    static constexpr int SmallestTextStep = -3; ///< each step is a tenth of the normal size
    static constexpr int LargestTextStep = 6;

    bool clockShown = true;
    bool soundOn = true;
    int volume = 80; ///< 0 to 100
    bool webPages = false;
    int textStep = 0;

    /// Reads what is kept; anything missing or out of range keeps its default.
    static StudentSettings load(QSettings &store);
    /// The student's own store (in the user's configuration folder, never the data directory).
    static QString storeOrganisation() { return QString::fromLatin1(OrganisationName); }
    static QString storeApplication() { return QString::fromLatin1(ApplicationName); }
    void save(QSettings &store) const;
    /// Keeps the program state's settings in the student's own store.
    static void keep(const ProgramState &state);
    /// Puts the settings into the program state, which every screen reads.
    void applyTo(ProgramState &state) const;
    static StudentSettings from(const ProgramState &state);

    /// The reading text's size as a factor of the normal size (1.0 at step 0).
    static double textFactor(int step) { return 1.0 + 0.1 * step; }
    /// "Text size: 120%"
    static QString textSizeCaption(int step);
};

} // namespace sd
