#include "orbit/passes/pass_search.h"

#include <cmath>

#include "orbit/passes/horizon_scan.h"

namespace vantrace {

namespace {

constexpr double eventSearchS = eventSearchDays * secondsPerDay;

/// Puts the passes of a span together from the crossings of a scan.
class PassCollector {
  public:
    PassCollector(Mover& mover, const Observer& observer, const Instant& from, double spanS)
        : m_mover(mover),
          m_observer(observer),
          m_from(from),
          m_spanS(spanS),
          m_scan(mover, observer, 0.0, 1) {}

    PassSearchResult collect() {
        if (m_scan.upAtStart()) {
            addPassUnderWay();
        }
        while (!m_ended) {
            // Crossings alternate: after a set comes a rise.
            const auto rise = m_scan.next(m_spanS);
            m_ended = !rise;
            if (rise) {
                addPass(rise->sample, true);
            }
        }
        if (m_scan.failed() && m_scan.last().seconds <= m_spanS) {
            m_result.failureReason = m_mover.failureReason();
            m_result.failureTime = plusSeconds(m_from, m_scan.last().seconds);
        }
        return std::move(m_result);
    }

  private:
    void addPassUnderWay() {
        HorizonScan back(m_mover, m_observer, 0.0, -1);
        const auto rise = back.next(-eventSearchS);
        addPass(rise ? rise->sample : m_scan.start(), rise.has_value());
    }

    void addPass(const HorizonSample& rise, bool riseKnown) {
        const auto event = m_scan.next(m_spanS + eventSearchS);
        const HorizonSample set = event ? event->sample : spanEnd(rise);
        m_ended = !event;
        Pass pass;
        pass.riseKnown = riseKnown;
        pass.setKnown = event.has_value();
        pass.rise = point(rise);
        pass.set = point(set);
        pass.culmination = point(m_scan.greatestElevation(rise, set));
        m_result.passes.push_back(pass);
    }

    /// Where a pass without a set is cut: the end of the span, or of the path.
    HorizonSample spanEnd(const HorizonSample& rise) {
        HorizonSample end = m_scan.last();
        if (!m_scan.failed() || end.seconds > m_spanS) {
            m_scan.sampleAt(m_spanS, end);
        }
        return end.seconds > rise.seconds ? end : rise;
    }

    PassPoint point(const HorizonSample& sample) {
        const Whereabouts look = whereabouts(m_observer, sample.state, sample.greenwich);
        return {plusSeconds(m_from, sample.seconds), look.azimuthRad, look.elevationRad};
    }

    Mover& m_mover;
    const Observer& m_observer;
    Instant m_from;
    double m_spanS;
    HorizonScan m_scan;
    PassSearchResult m_result;
    bool m_ended = false;
};

/// A moment just behind a crossing, with the mover on its new side, so that a search from there finds the
/// next one.
double behindCrossing(HorizonScan& scan, const HorizonEvent& event) {
    constexpr double longestS = 0.05;
    double offsetS = 1.0e-4;
    HorizonSample behind;
    while (offsetS < longestS && scan.sampleAt(event.sample.seconds + offsetS, behind) &&
           (behind.upKm >= 0.0) != (event.kind == Crossing::rise)) {
        offsetS *= 2.0;
    }
    return event.sample.seconds + offsetS;
}

EventSearchResult findNext(Mover& mover, const Observer& observer, const Instant& from, Crossing wanted) {
    HorizonScan scan(mover, observer, 0.0, 1);
    EventSearchResult result;
    while (const auto event = scan.next(eventSearchS)) {
        if (event->kind == wanted) {
            result.time = plusSeconds(from, behindCrossing(scan, *event));
            return result;
        }
    }
    if (scan.failed()) {
        result.failureReason = mover.failureReason();
        result.failureTime = plusSeconds(from, scan.last().seconds);
    }
    return result;
}

}  // namespace

PassSearchResult findPasses(Mover& mover, const Observer& observer, const Instant& from, double days) {
    return PassCollector(mover, observer, from, days * secondsPerDay).collect();
}

EventSearchResult findNextRise(Mover& mover, const Observer& observer, const Instant& from) {
    return findNext(mover, observer, from, Crossing::rise);
}

EventSearchResult findNextSet(Mover& mover, const Observer& observer, const Instant& from) {
    return findNext(mover, observer, from, Crossing::set);
}

}  // namespace vantrace
