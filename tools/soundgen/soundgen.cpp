// Synthesises the program's short sound clips from scratch. Output is deterministic: the same
// build always writes byte-identical files.

#include "soundgen.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace {

constexpr int kRate = 22050;
constexpr double kPeak = 0.7079; // -3 dBFS

struct Partial {
    double ratio; // multiple of the fundamental; need not be whole (bells)
    double gain;
};

struct Note {
    double start = 0.0;    // seconds
    double length = 0.3;   // seconds, including the release
    double freq = 440.0;   // Hz at the start
    double freqEnd = 0.0;  // Hz at the end; 0 keeps the pitch steady
    double gain = 1.0;
    double attack = 0.01;  // seconds
    double decay = 0.5;    // exponential time constant in seconds; 0 holds steady
    double release = 0.04; // cosine fade at the end so the note never clicks
    double vibrato = 0.0;  // depth as a fraction of the pitch
    std::vector<Partial> timbre{{1.0, 1.0}};
};

class Clip {
public:
    explicit Clip(double seconds) : m_samples(static_cast<size_t>(std::lround(seconds * kRate)), 0.0) {}

    void add(const Note &n)
    {
        const auto first = static_cast<size_t>(std::lround(n.start * kRate));
        const auto count = static_cast<size_t>(std::lround(n.length * kRate));
        std::vector<double> phase(n.timbre.size(), 0.0);
        const double twoPi = 2.0 * std::numbers::pi;
        for (size_t i = 0; i < count && first + i < m_samples.size(); ++i) {
            const double t = static_cast<double>(i) / kRate;
            const double progress = static_cast<double>(i) / static_cast<double>(count);
            double f = n.freq;
            if (n.freqEnd > 0.0) // glide evenly in pitch, not in Hz, so it sounds smooth
                f = n.freq * std::pow(n.freqEnd / n.freq, progress);
            f *= 1.0 + n.vibrato * std::sin(twoPi * 5.5 * t);

            double env = n.decay > 0.0 ? std::exp(-t / n.decay) : 1.0;
            if (t < n.attack)
                env *= 0.5 - 0.5 * std::cos(std::numbers::pi * t / n.attack);
            const double untilEnd = n.length - t;
            if (untilEnd < n.release)
                env *= 0.5 - 0.5 * std::cos(std::numbers::pi * untilEnd / n.release);

            double v = 0.0;
            for (size_t p = 0; p < n.timbre.size(); ++p) {
                const double pf = f * n.timbre[p].ratio;
                if (pf >= kRate / 2.0) // drop partials above Nyquist instead of aliasing
                    continue;
                phase[p] += twoPi * pf / kRate;
                // higher partials fade faster, as in real instruments
                const double fade = n.decay > 0.0 ? std::exp(-t * (n.timbre[p].ratio - 1.0) / (4.0 * n.decay)) : 1.0;
                v += n.timbre[p].gain * fade * std::sin(phase[p]);
            }
            m_samples[first + i] += n.gain * env * v;
        }
    }

    // Scales the clip so its loudest sample sits at kPeak, then converts to 16-bit.
    QByteArray pcm() const
    {
        double peak = 0.0;
        for (double s : m_samples)
            peak = std::max(peak, std::abs(s));
        const double scale = peak > 0.0 ? kPeak / peak : 0.0;
        QByteArray out(static_cast<qsizetype>(m_samples.size() * 2), '\0');
        auto *dst = reinterpret_cast<uchar *>(out.data());
        for (size_t i = 0; i < m_samples.size(); ++i) {
            const double v = std::clamp(m_samples[i] * scale, -1.0, 1.0);
            qToLittleEndian<qint16>(static_cast<qint16>(std::lround(v * 32767.0)), dst + 2 * i);
        }
        return out;
    }

private:
    std::vector<double> m_samples;
};

QByteArray wavFile(const QByteArray &pcm)
{
    QByteArray header(44, '\0');
    auto *h = reinterpret_cast<uchar *>(header.data());
    auto put32 = [h](int at, quint32 v) { qToLittleEndian<quint32>(v, h + at); };
    auto put16 = [h](int at, quint16 v) { qToLittleEndian<quint16>(v, h + at); };
    std::copy_n("RIFF", 4, header.data());
    put32(4, static_cast<quint32>(36 + pcm.size()));
    std::copy_n("WAVEfmt ", 8, header.data() + 8);
    put32(16, 16);         // fmt chunk size
    put16(20, 1);          // PCM
    put16(22, 1);          // mono
    put32(24, kRate);
    put32(28, kRate * 2);  // bytes per second
    put16(32, 2);          // block align
    put16(34, 16);         // bits per sample
    std::copy_n("data", 4, header.data() + 36);
    put32(40, static_cast<quint32>(pcm.size()));
    return header + pcm;
}

double midi(int note) { return 440.0 * std::pow(2.0, (note - 69) / 12.0); }

const std::vector<Partial> kBrass{{1, 1.0}, {2, 0.7}, {3, 0.5}, {4, 0.32}, {5, 0.2}, {6, 0.12}, {7, 0.07}};
const std::vector<Partial> kBell{{1, 1.0}, {2.0, 0.45}, {2.76, 0.3}, {4.07, 0.12}, {5.4, 0.08}};
const std::vector<Partial> kSoftBell{{1, 1.0}, {2.0, 0.25}, {3.0, 0.08}};
const std::vector<Partial> kPad{{1, 1.0}, {2, 0.3}, {3, 0.12}, {4, 0.05}};
const std::vector<Partial> kReed{{1, 1.0}, {2, 0.4}, {3, 0.25}, {4, 0.1}, {5, 0.05}};
const std::vector<Partial> kHollow{{1, 1.0}, {3, 0.3}, {5, 0.12}};

Clip fanfare()
{
    Clip c(1.2);
    const int steps[] = {67, 72, 76}; // G4 C5 E5, then a held G5 over a C major chord
    for (int i = 0; i < 3; ++i)
        c.add({.start = 0.13 * i, .length = 0.16, .freq = midi(steps[i]), .gain = 0.9,
               .attack = 0.015, .decay = 0.0, .release = 0.04, .timbre = kBrass});
    for (int n : {60, 64, 67})
        c.add({.start = 0.39, .length = 0.81, .freq = midi(n), .gain = 0.35,
               .attack = 0.03, .decay = 0.9, .release = 0.25, .timbre = kBrass});
    c.add({.start = 0.39, .length = 0.81, .freq = midi(79), .gain = 1.0, .attack = 0.02,
           .decay = 1.2, .release = 0.25, .vibrato = 0.004, .timbre = kBrass});
    return c;
}

Clip happyChime()
{
    Clip c(0.8);
    const int notes[] = {84, 88, 91}; // C6 E6 G6
    for (int i = 0; i < 3; ++i)
        c.add({.start = 0.12 * i, .length = 0.8 - 0.12 * i, .freq = midi(notes[i]), .gain = 1.0,
               .attack = 0.004, .decay = 0.22, .release = 0.08, .timbre = kBell});
    return c;
}

Clip chimes()
{
    Clip c(0.8);
    const int notes[] = {81, 88, 81}; // A5 E6 A5, a plain fifth: neither glad nor sad
    const double gains[] = {1.0, 0.8, 0.6};
    for (int i = 0; i < 3; ++i)
        c.add({.start = 0.18 * i, .length = 0.8 - 0.18 * i, .freq = midi(notes[i]), .gain = gains[i],
               .attack = 0.006, .decay = 0.25, .release = 0.08, .timbre = kSoftBell});
    return c;
}

Clip chord()
{
    Clip c(0.8);
    const int notes[] = {57, 60, 64, 69}; // A minor, gently strummed
    for (int i = 0; i < 4; ++i)
        c.add({.start = 0.03 * i, .length = 0.8 - 0.03 * i, .freq = midi(notes[i]), .gain = 0.8,
               .attack = 0.05, .decay = 0.45, .release = 0.2, .timbre = kPad});
    return c;
}

Clip ohDear()
{
    Clip c(0.8);
    c.add({.start = 0.0, .length = 0.34, .freq = midi(67), .gain = 1.0, .attack = 0.03,
           .decay = 0.0, .release = 0.06, .vibrato = 0.003, .timbre = kReed});
    c.add({.start = 0.32, .length = 0.48, .freq = midi(64), .freqEnd = midi(60), .gain = 1.0,
           .attack = 0.03, .decay = 0.6, .release = 0.15, .vibrato = 0.004, .timbre = kReed});
    return c;
}

Clip startJingle()
{
    Clip c(0.7);
    const int notes[] = {72, 76, 79, 84}; // C5 E5 G5 C6
    for (int i = 0; i < 4; ++i)
        c.add({.start = 0.09 * i, .length = 0.7 - 0.09 * i, .freq = midi(notes[i]),
               .gain = i == 3 ? 1.0 : 0.75, .attack = 0.005, .decay = i == 3 ? 0.2 : 0.09,
               .release = 0.06, .timbre = kBell});
    return c;
}

Clip oops()
{
    Clip c(0.25);
    c.add({.start = 0.0, .length = 0.25, .freq = 220.0, .freqEnd = 140.0, .gain = 1.0,
           .attack = 0.008, .decay = 0.12, .release = 0.05, .timbre = kHollow});
    return c;
}

} // namespace

namespace sd::soundgen {

QList<SoundClip> clips()
{
    struct Item {
        const char *name;
        Clip (*make)();
    };
    const Item items[] = {{"fanfare1.wav", fanfare},  {"happychime.wav", happyChime},
                          {"chimes.wav", chimes},     {"chord.wav", chord},
                          {"ohdear.wav", ohDear},     {"start.wav", startJingle},
                          {"oopshort.wav", oops}};
    QList<SoundClip> out;
    for (const Item &item : items)
        out.append({QString::fromLatin1(item.name), wavFile(item.make().pcm())});
    return out;
}

bool writeClips(const QString &folder, QString *error)
{
    if (!QDir().mkpath(folder)) {
        if (error)
            *error = QStringLiteral("cannot create folder %1").arg(folder);
        return false;
    }
    for (const SoundClip &clip : clips()) {
        const QString path = QDir(folder).filePath(clip.fileName);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(clip.wav) != clip.wav.size()) {
            if (error)
                *error = QStringLiteral("cannot write %1").arg(path);
            return false;
        }
    }
    return true;
}

} // namespace sd::soundgen
