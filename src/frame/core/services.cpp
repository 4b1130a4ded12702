#include "services.h"

#include <chrono>

namespace sd {

quint64 SystemSeedSource::seed()
{
    return quint64(std::chrono::steady_clock::now().time_since_epoch().count());
}

} // namespace sd
