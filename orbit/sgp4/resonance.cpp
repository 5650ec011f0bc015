#include "orbit/sgp4/resonance.h"

#include <cmath>

#include "orbit/sgp4/gravity.h"
#include "orbit/sgp4/resonance_functions.h"
#include "orbit/sin_cos.h"

namespace vantrace {

namespace {

constexpr double earthRotationRadPerMin = 4.37526908801129966e-3;
constexpr double stepLengthMinutes = 720.0;
constexpr double halfStepSquared = 0.5 * stepLengthMinutes * stepLengthMinutes;
/// Steps kept in each direction, some eleven years; beyond that the integrator runs on without keeping.
constexpr std::size_t mostKeptSteps = 8192;

bool isOneDay(const BrouwerOrbit& orbit) {
    return orbit.meanMotion > 0.0034906585 && orbit.meanMotion < 0.0052359877;
}

bool isHalfDay(const BrouwerOrbit& orbit) {
    return orbit.meanMotion >= 8.26e-3 && orbit.meanMotion <= 9.24e-3 && orbit.eccentricity >= 0.5;
}

}  // namespace

std::optional<Resonance> Resonance::of(const BrouwerOrbit& orbit, const SecularRates& rates,
                                       double siderealTimeAtEpoch) {
    if (!isOneDay(orbit) && !isHalfDay(orbit)) {
        return std::nullopt;
    }
    Resonance resonance;
    resonance.m_siderealTimeAtEpoch = siderealTimeAtEpoch;
    resonance.m_argumentOfPerigee = orbit.argumentOfPerigee;
    resonance.m_perigeeRate = orbit.perigeeRate;
    double longitude = 0.0;
    if (isHalfDay(orbit)) {
        resonance.m_kind = Kind::halfDay;
        resonance.setHalfDay(orbit, rates);
        longitude = orbit.meanAnomaly + 2.0 * orbit.node - 2.0 * siderealTimeAtEpoch;
    } else {
        resonance.m_kind = Kind::oneDay;
        resonance.setOneDay(orbit, rates);
        longitude = orbit.meanAnomaly + orbit.node + orbit.argumentOfPerigee - siderealTimeAtEpoch;
    }
    const Step epoch = resonance.withDerivatives(longitude, orbit.meanMotion, 0.0);
    resonance.m_forward.push_back(epoch);
    resonance.m_backward.push_back(epoch);
    return resonance;
}

void Resonance::setOneDay(const BrouwerOrbit& orbit, const SecularRates& rates) {
    constexpr double q22 = 1.7891679e-6;
    constexpr double q31 = 2.1460748e-6;
    constexpr double q33 = 2.2123015e-7;
    const double e2 = orbit.eccentricity * orbit.eccentricity;
    const double axisInverse = std::pow(orbit.meanMotion / wgs72::ke, 2.0 / 3.0);
    const double g200 = 1.0 + e2 * (-2.5 + 0.8125 * e2);
    const double g310 = 1.0 + 2.0 * e2;
    const double g300 = 1.0 + e2 * (-6.0 + 6.60937 * e2);
    const double cosI = orbit.cosInclination;
    const double onePlusCos = 1.0 + cosI;
    const double f220 = 0.75 * onePlusCos * onePlusCos;
    const double f311 =
        0.9375 * orbit.sinInclination * orbit.sinInclination * (1.0 + 3.0 * cosI) - 0.75 * onePlusCos;
    const double f330 = 1.875 * onePlusCos * onePlusCos * onePlusCos;
    const double scale = 3.0 * orbit.meanMotion * orbit.meanMotion * axisInverse * axisInverse;
    m_del1 = scale * axisInverse * f311 * g310 * q31;
    m_del2 = 2.0 * scale * f220 * g200 * q22;
    m_del3 = 3.0 * scale * axisInverse * f330 * g300 * q33;
    m_longitudeDrift = orbit.meanAnomalyRate + orbit.perigeeRate + orbit.nodeRate - earthRotationRadPerMin +
                       rates.meanAnomaly + rates.perigee + rates.node - orbit.meanMotion;
}

void Resonance::setHalfDay(const BrouwerOrbit& orbit, const SecularRates& rates) {
    constexpr double root22 = 1.7891679e-6;
    constexpr double root32 = 3.7393792e-7;
    constexpr double root44 = 7.3636953e-9;
    constexpr double root52 = 1.1428639e-7;
    constexpr double root54 = 2.1765803e-9;
    const EccentricityFunctions g = eccentricityFunctions(orbit.eccentricity);
    const InclinationFunctions f = inclinationFunctions(orbit.sinInclination, orbit.cosInclination);
    const double axisInverse = std::pow(orbit.meanMotion / wgs72::ke, 2.0 / 3.0);
    double scale = 3.0 * orbit.meanMotion * orbit.meanMotion * axisInverse * axisInverse;
    m_d2201 = scale * root22 * f.f220 * g.g201;
    m_d2211 = scale * root22 * f.f221 * g.g211;
    scale *= axisInverse;
    m_d3210 = scale * root32 * f.f321 * g.g310;
    m_d3222 = scale * root32 * f.f322 * g.g322;
    scale *= axisInverse;
    m_d4410 = 2.0 * scale * root44 * f.f441 * g.g410;
    m_d4422 = 2.0 * scale * root44 * f.f442 * g.g422;
    scale *= axisInverse;
    m_d5220 = scale * root52 * f.f522 * g.g520;
    m_d5232 = scale * root52 * f.f523 * g.g532;
    m_d5421 = 2.0 * scale * root54 * f.f542 * g.g521;
    m_d5433 = 2.0 * scale * root54 * f.f543 * g.g533;
    m_longitudeDrift = orbit.meanAnomalyRate + rates.meanAnomaly +
                       2.0 * (orbit.nodeRate + rates.node - earthRotationRadPerMin) - orbit.meanMotion;
}

void Resonance::addOneDayRates(Step& step) const {
    constexpr double phase2 = 0.13130908;
    constexpr double phase4 = 2.8843198;
    constexpr double phase6 = 0.37448087;
    const SinCos first = sinCos(step.longitude - phase2);
    const SinCos second = sinCos(2.0 * (step.longitude - phase4));
    const SinCos third = sinCos(3.0 * (step.longitude - phase6));
    step.motionRate = m_del1 * first.sin + m_del2 * second.sin + m_del3 * third.sin;
    step.motionAcceleration = m_del1 * first.cos + 2.0 * m_del2 * second.cos + 3.0 * m_del3 * third.cos;
}

void Resonance::addHalfDayRates(Step& step, double minutes) const {
    constexpr double g22 = 5.7686396;
    constexpr double g32 = 0.95240898;
    constexpr double g44 = 1.8014998;
    constexpr double g52 = 1.0508330;
    constexpr double g54 = 4.4108898;
    const double perigee = m_argumentOfPerigee + m_perigeeRate * minutes;
    const double longitude = step.longitude;
    const auto add = [&step](double factor, double angle, double order) {
        const SinCos term = sinCos(angle);
        step.motionRate += factor * term.sin;
        step.motionAcceleration += order * factor * term.cos;
    };
    add(m_d2201, 2.0 * perigee + longitude - g22, 1.0);
    add(m_d2211, longitude - g22, 1.0);
    add(m_d3210, perigee + longitude - g32, 1.0);
    add(m_d3222, -perigee + longitude - g32, 1.0);
    add(m_d4410, 2.0 * perigee + 2.0 * longitude - g44, 2.0);
    add(m_d4422, 2.0 * longitude - g44, 2.0);
    add(m_d5220, perigee + longitude - g52, 1.0);
    add(m_d5232, -perigee + longitude - g52, 1.0);
    add(m_d5421, perigee + 2.0 * longitude - g54, 2.0);
    add(m_d5433, -perigee + 2.0 * longitude - g54, 2.0);
}

Resonance::Step Resonance::withDerivatives(double longitude, double meanMotion, double minutes) const {
    Step step{longitude, meanMotion, meanMotion + m_longitudeDrift, 0.0, 0.0};
    if (m_kind == Kind::oneDay) {
        addOneDayRates(step);
    } else {
        addHalfDayRates(step, minutes);
    }
    step.motionAcceleration *= step.longitudeRate;
    return step;
}

Resonance::Step Resonance::stepAfter(const Step& step, double minutes, double stepMinutes) const {
    return withDerivatives(
        step.longitude + step.longitudeRate * stepMinutes + step.motionRate * halfStepSquared,
        step.meanMotion + step.motionRate * stepMinutes + step.motionAcceleration * halfStepSquared,
        minutes + stepMinutes);
}

const Resonance::Step& Resonance::keptStep(std::vector<Step>& steps, std::size_t index, double stepMinutes) {
    while (steps.size() <= index) {
        const double minutes = static_cast<double>(steps.size() - 1) * stepMinutes;
        steps.push_back(stepAfter(steps.back(), minutes, stepMinutes));
    }
    return steps[index];
}

const Resonance::Step& Resonance::distantStep(const Step& last, std::size_t lastIndex, std::size_t index,
                                              double stepMinutes) {
    if (m_distant.stepMinutes != stepMinutes || m_distant.index > index) {
        m_distant = {stepMinutes, lastIndex, last};
    }
    for (; m_distant.index < index; ++m_distant.index) {
        m_distant.step =
            stepAfter(m_distant.step, static_cast<double>(m_distant.index) * stepMinutes, stepMinutes);
    }
    return m_distant.step;
}

Resonance::Motion Resonance::at(double minutes) {
    const bool forward = minutes >= 0.0;
    const double stepMinutes = forward ? stepLengthMinutes : -stepLengthMinutes;
    const auto index = static_cast<std::size_t>(std::abs(minutes) / stepLengthMinutes);
    const std::size_t keptIndex = index < mostKeptSteps ? index : mostKeptSteps;
    Step step = keptStep(forward ? m_forward : m_backward, keptIndex, stepMinutes);
    if (keptIndex < index) {
        step = distantStep(step, keptIndex, index, stepMinutes);
    }
    const double t = minutes - static_cast<double>(index) * stepMinutes;
    return {step.meanMotion + step.motionRate * t + 0.5 * step.motionAcceleration * t * t,
            step.longitude + step.longitudeRate * t + 0.5 * step.motionRate * t * t};
}

double Resonance::meanAnomaly(double longitude, double minutes, double node, double argumentOfPerigee) const {
    const double siderealTime = m_siderealTimeAtEpoch + minutes * earthRotationRadPerMin;
    return m_kind == Kind::oneDay ? longitude - node - argumentOfPerigee + siderealTime
                                  : longitude - 2.0 * node + 2.0 * siderealTime;
}

}  // namespace vantrace
