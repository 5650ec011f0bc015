#pragma once

#include <algorithm>
#include <cmath>

namespace vantrace {

/// The cubic through two values with their slopes (Hermite), over 0 to 1.
class HermiteCubic {
  public:
    /// Slopes in units of the value per whole interval.
    HermiteCubic(double value0, double slope0, double value1, double slope1)
        : m_c0(value0),
          m_c1(slope0),
          m_c2(3.0 * (value1 - value0) - 2.0 * slope0 - slope1),
          m_c3(2.0 * (value0 - value1) + slope0 + slope1) {}

    double at(double x) const { return m_c0 + x * (m_c1 + x * (m_c2 + x * m_c3)); }
    double slopeAt(double x) const { return m_c1 + x * (2.0 * m_c2 + x * 3.0 * m_c3); }

    /// Where the cubic is 0, for values of different sign at the ends; Newton's method kept within its
    /// bracket.
    double root() const {
        double low = 0.0;
        double high = 1.0;
        const bool rising = at(high) > 0.0;
        double x = m_c0 / (m_c0 - at(1.0));
        for (int i = 0; i < 20; ++i) {
            const double value = at(x);
            (value > 0.0) == rising ? high = x : low = x;
            double next = x - value / slopeAt(x);
            if (!(next > low && next < high)) {
                next = 0.5 * (low + high);
            }
            const double step = std::abs(next - x);
            x = next;
            if (step < 1.0e-9) {
                break;
            }
        }
        return x;
    }

    /// Where the slope is 0, for slopes of different sign at the ends.
    double turningPoint() const {
        const double a = 3.0 * m_c3;
        const double b = m_c2;
        const double discriminant = std::sqrt(std::max(0.0, b * b - a * m_c1));
        // The two roots without a difference of nearly equal numbers; one of them lies between the ends.
        const double q = -(b + std::copysign(discriminant, b));
        const double first = a != 0.0 ? q / a : -1.0;
        const double second = q != 0.0 ? m_c1 / q : -1.0;
        const bool firstInside = first >= 0.0 && first <= 1.0;
        const bool secondInside = second >= 0.0 && second <= 1.0;
        if (firstInside != secondInside) {
            return firstInside ? first : second;
        }
        return firstInside ? first : 0.5;
    }

  private:
    double m_c0, m_c1, m_c2, m_c3;
};

}  // namespace vantrace
