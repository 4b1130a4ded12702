#pragma once

#include "checked.h"
#include "services.h"

#include <random>

namespace sd {

/// The random generator. Every draw is preceded by a re-seed from the seed source (a clock),
/// as the program has always done; the seed source decides whether runs are reproducible.
class Randomizer
{
public:
    explicit Randomizer(SeedSource &seeds) : m_seeds(seeds) {}
    void reseed() { m_engine.seed(m_seeds.seed()); }
    /// A number in [0, 1) from the current seed.
    double next() { return std::generate_canonical<double, 53>(m_engine); }
    /// Re-seeds, then draws a whole number in 1..n (n >= 1).
    int drawOneTo(int n)
    {
        reseed();
        return int(next() * n) + 1;
    }

private:
    SeedSource &m_seeds;
    std::mt19937_64 m_engine;
};

struct ProgramState;
/// Draws the next record not yet used, starting from the candidate in CurrentRecord.
void PickRandomRecord(ProgramState &s);
/// Clears the picker for a new series of drawings.
void ClearPicks(ProgramState &s);

} // namespace sd
