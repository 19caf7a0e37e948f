#include "core/steprunner.h"

#include <exception>
#include <utility>

namespace rd {

StepRunner::StepRunner(TrapHandler handler) : handler_(std::move(handler)) {}

bool StepRunner::step(const std::function<void()>& body) {
    if (aborted_)
        return false;
    for (;;) {
        std::string description;
        try {
            body();
            return true;
        } catch (const std::exception& e) {
            description = e.what();
        }
        ++failures_;
        const TrapChoice choice = handler_ ? handler_(description) : TrapChoice::Abort;
        if (choice == TrapChoice::Retry)
            continue;
        if (choice == TrapChoice::Abort)
            aborted_ = true;
        return false;
    }
}

TrapHandler collectAndIgnore(std::vector<std::string>& descriptions) {
    return [&descriptions](const std::string& description) {
        descriptions.push_back(description);
        return TrapChoice::Ignore;
    };
}

} // namespace rd
