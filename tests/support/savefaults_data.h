#pragma once
// Faults put into the saving of files, for the tests that prove a save never leaves half a file:
// a full disk at a chosen byte (the first, the middle, the last line), a failing flush or rename,
// and what a save leaves behind in a folder.

#include "core/nativefile.h"
#include "core/steprunner.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd::test {

// A fault in force while the object lives (or until lift()).
class InjectedSaveFault {
public:
    explicit InjectedSaveFault(native::SaveFault fault);
    ~InjectedSaveFault();
    InjectedSaveFault(const InjectedSaveFault&) = delete;
    InjectedSaveFault& operator=(const InjectedSaveFault&) = delete;
    void lift();
};

// A point where a save is made to fail, named for the messages of the tests.
struct SaveFaultPoint {
    std::string name;
    native::SaveFault fault;
};

// The disk full at the first byte of `bytes`, in its middle and inside its last line; then the
// flush to the disk and the rename failing.
std::vector<SaveFaultPoint> saveFaultPoints(std::string_view bytes);

// The temporary files of saves in `folder` (hidden names ending in ".rdsave").
std::vector<std::string> saveLeftoversIn(const std::filesystem::path& folder);

// For every point of saveFaultPoints(newBytes): `save` runs under a trap whose handler checks
// that `file` is still byte for byte what it was (or still missing) and that no temporary file
// is left in its folder, keeps the description, lifts the fault and answers Retry; afterwards
// the file holds `newBytes`. The old bytes are put back before the next point. `afterSaves`:
// the files `save` saves before `file`, which the fault lets through. Returns the descriptions
// the trap was given, one a point.
std::vector<std::string> expectSavesSurviveFaults(const std::filesystem::path& file,
                                                  const std::function<void(StepRunner&)>& save,
                                                  std::string_view newBytes, int afterSaves = 0);

} // namespace rd::test
