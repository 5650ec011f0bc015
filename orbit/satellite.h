#pragma once

#include "orbit/elements/element_set.h"
#include "orbit/sgp4/propagator.h"

namespace vantrace {

/// An element set with its orbit model, made once.
class Satellite {
  public:
    explicit Satellite(const ElementSet& elements);

    const ElementSet& elements() const { return m_elements; }
    Propagator& propagator() { return m_propagator; }

    /// Orbits since launch with their fraction, counted from ascending node to ascending node, for a state
    /// that the propagator gave: the set's revolution number holds at its epoch. By the true argument of
    /// latitude; within half a degree of the equator's plane, where the node is lost, by the mean one.
    double orbitCount(const Propagated& propagated) const;

  private:
    ElementSet m_elements;
    Propagator m_propagator;
    double m_turnsAtEpoch = 0.0;
};

}  // namespace vantrace
