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
        : m_mover(mover), m_observer(observer), m_from(from), m_spanS(spanS), m_scan(mover, observer, 0.0, 1) {}

    PassSearchResult collect() {
        if (!m_scan.started()) {
            noteFailure();
            return std::move(m_result);
        }
        if (m_scan.upAtStart()) {
            addPassUnderWay();
        }
        while (const auto rise = nextInSpan()) {
            addPass(rise->seconds, true);
        }
        if (m_scan.failed()) {
            noteFailure();
        }
        return std::move(m_result);
    }

  private:
    /// Crossings alternate: after a set comes a rise.
    std::optional<HorizonEvent> nextInSpan() { return m_ended ? std::nullopt : m_scan.next(m_spanS); }

    void addPassUnderWay() {
        HorizonScan back(m_mover, m_observer, 0.0, -1);
        const auto rise = back.next(-eventSearchS);
        addPass(rise ? rise->seconds : 0.0, rise.has_value());
    }

    void addPass(double riseS, bool riseKnown) {
        const auto set = m_scan.next(m_spanS + eventSearchS);
        const double lastS = m_scan.failed() ? m_scan.failureSeconds() : m_spanS;
        const double setS = set ? set->seconds : std::max(lastS, riseS);
        m_ended = !set;
        Pass pass;
        pass.riseKnown = riseKnown;
        pass.setKnown = set.has_value();
        pass.rise = point(riseS);
        pass.set = point(setS);
        pass.culmination = point(m_scan.greatestElevation(riseS, setS).seconds);
        m_result.passes.push_back(pass);
    }

    PassPoint point(double seconds) {
        const Whereabouts look = m_scan.lookAt(seconds);
        return {plusSeconds(m_from, seconds), look.azimuthRad, look.elevationRad};
    }

    void noteFailure() {
        if (m_scan.failureSeconds() <= m_spanS) {
            m_result.failureReason = m_mover.failureReason();
            m_result.failureTime = plusSeconds(m_from, m_scan.failureSeconds());
        }
    }

    Mover& m_mover;
    const Observer& m_observer;
    Instant m_from;
    double m_spanS;
    HorizonScan m_scan;
    PassSearchResult m_result;
    bool m_ended = false;
};

EventSearchResult findNext(Mover& mover, const Observer& observer, const Instant& from, Crossing wanted) {
    constexpr double justBehindS = 1.0e-4;
    HorizonScan scan(mover, observer, 0.0, 1);
    EventSearchResult result;
    while (const auto event = scan.next(eventSearchS)) {
        if (event->kind == wanted) {
            result.time = plusSeconds(from, event->seconds + justBehindS);
            return result;
        }
    }
    if (scan.failed()) {
        result.failureReason = mover.failureReason();
        result.failureTime = plusSeconds(from, scan.failureSeconds());
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
