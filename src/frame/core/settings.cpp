#include "settings.h"

#include "state.h"

#include <QSettings>

#include <algorithm>

namespace sd {

namespace {
int bounded(const QVariant &v, int low, int high, int fallback)
{
    bool ok = false;
    const int n = v.toInt(&ok);
    return ok && n >= low && n <= high ? n : fallback;
}
} // namespace

StudentSettings StudentSettings::load(QSettings &store)
{
    StudentSettings s;
    s.clockShown = store.value(QStringLiteral("clock/shown"), s.clockShown).toBool();
    s.soundOn = store.value(QStringLiteral("sound/on"), s.soundOn).toBool();
    s.volume = bounded(store.value(QStringLiteral("sound/volume")), 0, 100, s.volume);
    s.webPages = store.value(QStringLiteral("passages/webPages"), s.webPages).toBool();
    s.textStep = bounded(store.value(QStringLiteral("text/step")), SmallestTextStep, LargestTextStep, s.textStep);
    return s;
}

void StudentSettings::save(QSettings &store) const
{
    store.setValue(QStringLiteral("clock/shown"), clockShown);
    store.setValue(QStringLiteral("sound/on"), soundOn);
    store.setValue(QStringLiteral("sound/volume"), volume);
    store.setValue(QStringLiteral("passages/webPages"), webPages);
    store.setValue(QStringLiteral("text/step"), textStep);
    store.sync();
}

void StudentSettings::keep(const ProgramState &state)
{
    QSettings store(storeOrganisation(), storeApplication());
    from(state).save(store);
}

void StudentSettings::applyTo(ProgramState &state) const
{
    state.ClockShown = clockShown;
    state.SoundOn = soundOn;
    state.Volume = volume;
    state.ShowWebPages = webPages;
    state.TextStep = std::clamp(textStep, SmallestTextStep, LargestTextStep);
}

StudentSettings StudentSettings::from(const ProgramState &state)
{
    StudentSettings s;
    s.clockShown = state.ClockShown;
    s.soundOn = state.SoundOn;
    s.volume = state.Volume;
    s.webPages = state.ShowWebPages;
    s.textStep = state.TextStep;
    return s;
}

QString StudentSettings::textSizeCaption(int step)
{
    return QStringLiteral("Text size: %1%").arg(qRound(textFactor(step) * 100));
}

} // namespace sd
