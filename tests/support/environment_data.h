#pragma once
// Setting and removing environment variables from a test (setenv has no twin on Windows; there
// an empty value removes the variable).

#include <string>

namespace rd::test {

void setEnvironment(const std::string& name, const std::string& value);
void unsetEnvironment(const std::string& name);

} // namespace rd::test
