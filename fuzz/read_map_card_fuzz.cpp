// The map reader over arbitrary bytes: read from a file, from memory, and from inside a file at an
// offset (as from an archive), the card (or the reason there is none) is the same, and a card
// never holds more than the bytes could describe.
#include "fuzz/fuzz_input.h"
#include "maps/bsp.h"

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <string_view>

namespace {

bool sameFloats(const std::array<float, 3>& a, const std::array<float, 3>& b) {
    return std::memcmp(a.data(), b.data(), sizeof(float) * 3) == 0;
}

bool sameResult(const rd::CardResult& a, const rd::CardResult& b) {
    if (a.reason != b.reason)
        return false;
    const rd::MapCard& x = a.card;
    const rd::MapCard& y = b.card;
    return x.title == y.title && x.deathmatchSpawns == y.deathmatchSpawns &&
           x.singleStarts == y.singleStarts && x.teamSpawns == y.teamSpawns && x.ctf == y.ctf &&
           x.weapons == y.weapons && sameFloats(x.mins, y.mins) && sameFloats(x.maxs, y.maxs) &&
           x.plan.lines == y.plan.lines && x.plan.points.size() == y.plan.points.size() &&
           (x.plan.points.empty() || std::memcmp(x.plan.points.data(), y.plan.points.data(),
                                                 x.plan.points.size() * sizeof(x.plan.points[0])) == 0);
}

void check(const rd::CardResult& result, std::size_t size) {
    const rd::MapCard& card = result.card;
    if (!result.ok()) {
        // No half card comes with a reason.
        if (!card.title.empty() || card.deathmatchSpawns != 0 || !card.weapons.empty() ||
            !card.plan.points.empty() || !card.plan.lines.empty())
            std::abort();
        return;
    }
    // Nothing is invented: every point takes 12 bytes of the map, every line at least 4, every
    // counted entity a brace pair.
    if (card.plan.points.size() * 12 > size || card.plan.lines.size() * 4 > size || card.title.size() > size)
        std::abort();
    const auto counted =
        static_cast<std::size_t>(card.deathmatchSpawns) + static_cast<std::size_t>(card.singleStarts) +
        static_cast<std::size_t>(card.teamSpawns[0]) + static_cast<std::size_t>(card.teamSpawns[1]);
    if (counted * 2 > size || card.deathmatchSpawns < 0 || card.singleStarts < 0)
        std::abort();
    for (const auto& line : card.plan.lines)
        if (line[0] >= card.plan.points.size() || line[1] >= card.plan.points.size())
            std::abort();
    std::set<std::string> weapons;
    for (const auto& weapon : card.weapons)
        if (!weapon.starts_with("weapon_") || !weapons.insert(weapon).second)
            std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& path = rd::fuzz::writeInput(data, size);
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    const rd::CardResult inMemory = rd::ReadMapCardFromBytes(bytes);
    check(inMemory, size);
    const rd::CardResult fromFile = rd::ReadMapCard(path);
    if (!sameResult(inMemory, fromFile))
        std::abort();

    // The same bytes as a map inside an archive: from an offset the first byte chooses, to the end.
    const std::size_t offset = size == 0 ? 0 : std::min<std::size_t>(data[0], size);
    const rd::CardResult inside = rd::ReadMapCard(path, offset, size - offset);
    if (!sameResult(inside, rd::ReadMapCardFromBytes(bytes.substr(offset))))
        std::abort();
    // And an entry that claims more than the file holds.
    if (rd::ReadMapCard(path, offset, size - offset + 1).ok())
        std::abort();
    return 0;
}
