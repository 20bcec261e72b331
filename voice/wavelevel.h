#pragma once

/**
 * The level that the wave shows: follows the microphone's in steps of one per frame, climbs to it
 * and then moves up and down just below it. In percent of full scale.
 */
class WaveLevel
{
public:
    /** The level to draw. */
    double current() const { return m_current; }

    /** Sets the level to follow from the microphone's, 0.0 to 1.0; anything below a fifth is a
     * fifth. */
    void follow(double level);
    /** One frame passes. */
    void advance();
    /** Back to rest. The direction of movement is kept. */
    void reset();

private:
    double m_current = restingLevel; // percent
    double m_target = restingTarget; // percent; 20 to 100 once it follows
    bool m_rising = true;            // towards the target

    static constexpr double restingLevel = 5.0;
    static constexpr double restingTarget = 10.0;
};
