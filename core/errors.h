#pragma once
// Errors raised by the data layer. Every failure the launcher's data can cause is one of these
// (or a std::exception from the standard library); the error trap shows its description.

#include <stdexcept>
#include <string>

namespace rd {

// A failure with a description meant for the user ("File not found", "Type mismatch", ...).
class RosterError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A text could not be converted to the number type a field needs.
class ConversionError : public RosterError {
public:
    using RosterError::RosterError;
};

// A file or folder operation failed.
class FileError : public RosterError {
public:
    using RosterError::RosterError;
};

} // namespace rd
