#pragma once

#include <gtest/gtest.h>

#include "outside/store/SYDatabase.h"

// Runs a scenario once for every statement it makes, with that statement failing, until a
// run gets through without the fault firing:
//     for (FaultSweep sweep(db); sweep.Next();) { prepare; sweep.Arm(); act; check Fired() }
class FaultSweep {
public:
    explicit FaultSweep(SYDatabase& db, int limit = 400) : m_db(db), m_limit(limit) {}
    FaultSweep(const FaultSweep&) = delete;
    FaultSweep& operator=(const FaultSweep&) = delete;
    ~FaultSweep() { m_db.ClearFault(); }

    // Starts the next run; false once a run got through (or the limit was reached, which
    // fails the test).
    bool Next() {
        if (m_nth > 0 && !m_armed)
            ADD_FAILURE() << "run " << m_nth << " never armed its fault";
        if (m_nth > 0 && !Fired())
            return false;
        if (m_nth == m_limit) {
            ADD_FAILURE() << "the scenario never got through";
            return false;
        }
        ++m_nth;
        m_armed = false;
        m_settled = false;
        return true;
    }
    void Arm() {
        m_armed = true;
        m_db.FailStatement(m_nth);
    }
    // Whether this run's fault fired; disarms it.
    bool Fired() {
        if (!m_settled) {
            m_fired = m_armed && !m_db.HaveFaultPending();
            m_faults += m_fired ? 1 : 0;
            m_settled = true;
            m_db.ClearFault();
        }
        return m_fired;
    }
    int Nth() const { return m_nth; }
    // The runs that failed so far.
    int Faults() const { return m_faults; }

private:
    SYDatabase& m_db;
    int m_limit;
    int m_nth = 0;
    int m_faults = 0;
    bool m_armed = false;
    bool m_fired = false;
    bool m_settled = false;
};
