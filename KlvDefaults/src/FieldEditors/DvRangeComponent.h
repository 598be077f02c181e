#pragma once

/// A range of values for sliders: one pair of bounds for each numeric kind, and whether the range may grow.
///
/// The bounds for double fields are kept in single precision.
class DvRangeComponent
{
public:
    /// All bounds 0, not fixed.
    DvRangeComponent() = default;
    /// A range for integer fields; the other bounds are 0. The next two do the same for their kinds.
    DvRangeComponent(int min, int max, bool boundFixed);
    DvRangeComponent(float min, float max, bool boundFixed);
    DvRangeComponent(double min, double max, bool boundFixed);

    /// Sets the bounds for integer, float or double fields and leaves the others as they are.
    void setiRange(int min, int max);
    void setfRange(float min, float max);
    void setdRange(double min, double max);
    void setBoundFixed(bool boundFixed) { m_boundFixed = boundFixed; }

    int getiMin() const { return m_iMin; }
    int getiMax() const { return m_iMax; }
    float getfMin() const { return m_fMin; }
    float getfMax() const { return m_fMax; }
    double getdMin() const { return m_dMin; }
    double getdMax() const { return m_dMax; }
    /// True when an editor must not widen the range.
    bool isBoundFixed() const { return m_boundFixed; }

    bool operator==(const DvRangeComponent&) const = default;

private:
    float m_fMin = 0;
    float m_fMax = 0;
    float m_dMin = 0;
    float m_dMax = 0;
    int m_iMin = 0;
    int m_iMax = 0;
    bool m_boundFixed = false;
};
