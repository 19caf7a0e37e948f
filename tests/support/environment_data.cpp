#include "tests/support/environment_data.h"

#include <cstdlib>

namespace rd::test {

#ifdef _WIN32

void setEnvironment(const std::string& name, const std::string& value) {
    // The C runtime of Windows keeps no empty variables: an empty value removes the variable,
    // which std::getenv then reports as unset.
    ::_putenv_s(name.c_str(), value.c_str());
}

void unsetEnvironment(const std::string& name) {
    ::_putenv_s(name.c_str(), "");
}

#else

void setEnvironment(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

void unsetEnvironment(const std::string& name) {
    ::unsetenv(name.c_str());
}

#endif

} // namespace rd::test
