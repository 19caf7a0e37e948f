#pragma once
// The error trap: an operation runs as a sequence of steps; when a step fails, a handler
// decides whether to Abort (leave through the operation's normal exit), Retry (run the same
// step again) or Ignore (go on with the next step). Screens hand a handler that asks the user;
// the command-line tool hands one that reports and goes on.

#include <functional>
#include <string>
#include <vector>

namespace rd {

enum class TrapChoice { Abort, Retry, Ignore };

// Called with the failing step's error description; returns what to do.
using TrapHandler = std::function<TrapChoice(const std::string& description)>;

class StepRunner {
public:
    explicit StepRunner(TrapHandler handler);

    // Runs one step under the trap. Returns false when the step did not complete (it failed
    // and was ignored, or the operation was aborted); once aborted, later steps do not run.
    bool step(const std::function<void()>& body);

    bool aborted() const { return aborted_; }
    // Number of failures reported to the handler.
    int failures() const { return failures_; }

private:
    TrapHandler handler_;
    bool aborted_ = false;
    int failures_ = 0;
};

// A handler that keeps every description and always ignores (for the command-line tool).
TrapHandler collectAndIgnore(std::vector<std::string>& descriptions);

} // namespace rd
