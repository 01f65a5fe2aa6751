// Time as the engines see it: the date, the time of day, named timers and waiting.
#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace tessel {

class Timer;

// The source of all time. The program runs on the system's clock and its event loop, tests on a
// virtual clock that jumps from deadline to deadline.
class Clock {
public:
    Clock() = default;
    virtual ~Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    // Milliseconds that only grow, whatever happens to the time of day.
    virtual std::int64_t monotonicMs() const = 0;
    // Seconds since 1970-01-01 00:00 as the local calendar counts them. May jump in both directions.
    virtual std::int64_t localSeconds() const = 0;
    // Returns after `ms`; until then timers tick and datagrams are handled.
    virtual void wait(int ms) = 0;

    QDate date() const;
    int secondOfDay() const;
    // The time of day as it travels in packets, "h:mm:ss AM".
    const QString& timeText() const;
    // The date as it stands in files, "M/d/yyyy".
    QString dateText() const;

    // Disables every timer that runs on this clock. They may be enabled anew.
    void stopTimers();

protected:
    // Asks to call `runDue` at `monotonicMs() == deadline`; -1: nothing is due.
    virtual void wakeAt(std::int64_t deadline) = 0;
    // Ticks every timer whose deadline has come, the earliest first.
    void runDue();
    // The earliest deadline, -1 when no timer runs.
    std::int64_t nextDeadline() const;

private:
    friend class Timer;
    using Entry = std::pair<std::int64_t, std::uint64_t>; // deadline, order of arming
    Entry arm(Timer* timer, std::int64_t deadline);
    void disarm(const Entry& entry);

    std::map<Entry, Timer*> m_armed;
    std::uint64_t m_armCount = 0;
    mutable std::int64_t m_textSecond = -1;
    mutable QString m_text;
};

// A named timer. A one-shot disables itself before its tick; a repeating one goes on until it is
// disabled. With an interval of 0 or less it never ticks, enabled or not.
class Timer {
public:
    enum class Kind { OneShot, Repeating };

    Timer(Clock& clock, const char* name, int intervalMs, Kind kind, std::function<void()> tick);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    const char* name() const { return m_name; }
    int interval() const { return m_interval; }
    bool enabled() const { return m_enabled; }

    // A running timer starts its interval anew.
    void setInterval(int ms);
    // Enabling a timer that runs changes nothing.
    void setEnabled(bool enabled);
    // Starts the interval anew, running or not.
    void restart();

private:
    friend class Clock;
    void arm();
    void disarm();
    void fire();

    Clock& m_clock;
    const char* m_name;
    int m_interval;
    Kind m_kind;
    std::function<void()> m_tick;
    bool m_enabled = false;
    bool m_armed = false;
    Clock::Entry m_entry{};
};

} // namespace tessel
