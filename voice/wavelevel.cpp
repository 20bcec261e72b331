#include "voice/wavelevel.h"

#include <QtGlobal>

namespace {

constexpr double lowestTarget = 20.0; // the wave moves in silence too
constexpr double highestTarget = 100.0;
constexpr double fallDepth = 5.0; // below the target; then it climbs again

} // namespace

void WaveLevel::follow(double level)
{
    const double percent = level * 100.0;
    // In this order of arguments a level that is not a number becomes the lowest target.
    m_target = percent > highestTarget ? highestTarget : qMax(lowestTarget, percent);
}

void WaveLevel::advance()
{
    if (m_rising && m_current < m_target) {
        m_current += 1.0;
        if (m_current < m_target)
            return;
    }
    if (m_current >= m_target)
        m_rising = false;

    if (m_current > m_target - fallDepth)
        m_current -= 1.0;
    else
        m_rising = true;
}

void WaveLevel::reset()
{
    m_current = restingLevel;
    m_target = restingTarget;
}
